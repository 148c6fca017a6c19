#include "convert/assimp/Meshes.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

void SetFaces(const std::vector<unsigned>& corners, unsigned size, aiMesh& mesh) {
  mesh.mNumFaces = static_cast<unsigned>(corners.size() / size);
  mesh.mFaces = new aiFace[mesh.mNumFaces];
  for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
    mesh.mFaces[i].mNumIndices = size;
    mesh.mFaces[i].mIndices = new unsigned[size];
    std::copy_n(corners.begin() + static_cast<std::ptrdiff_t>(size) * i, size, mesh.mFaces[i].mIndices);
  }
}

// Elements of each kind have a number of corners and a bit of their own.
void SetElements(const Shape& form, aiMesh& mesh) {
  if (!form.Triangles.empty()) {
    mesh.mPrimitiveTypes = aiPrimitiveType_TRIANGLE;
    SetFaces(form.Triangles, 3, mesh);
  } else if (!form.Segments.empty()) {
    mesh.mPrimitiveTypes = aiPrimitiveType_LINE;
    SetFaces(form.Segments, 2, mesh);
  } else {
    mesh.mPrimitiveTypes = aiPrimitiveType_POINT;
    std::vector<unsigned> corners(form.Points.size());
    std::iota(corners.begin(), corners.end(), 0U);
    SetFaces(corners, 1, mesh);
  }
}

}  // namespace

std::unique_ptr<aiMesh> MakeMesh(const Shape& form) {
  auto mesh = std::make_unique<aiMesh>();
  const std::size_t count = form.Points.size();
  mesh->mNumVertices = static_cast<unsigned>(count);
  mesh->mVertices = new aiVector3D[count];
  std::transform(form.Points.begin(), form.Points.end(), mesh->mVertices,
                 [](const brixFloatPoint& p) { return aiVector3D(p.x, p.y, p.z); });
  if (!form.Normals.empty()) {
    mesh->mNormals = new aiVector3D[count];
    std::transform(form.Normals.begin(), form.Normals.end(), mesh->mNormals,
                   [](const brixVector& n) { return aiVector3D(n.x, n.y, n.z); });
  }
  if (!form.TextureCoordinates.empty()) {
    mesh->mNumUVComponents[0] = 2;
    mesh->mTextureCoords[0] = new aiVector3D[count];
    std::transform(form.TextureCoordinates.begin(), form.TextureCoordinates.end(), mesh->mTextureCoords[0],
                   [](const brix2DFloatPoint& c) { return aiVector3D(c.x, c.y, 0.0F); });
  }
  SetElements(form, *mesh);
  return mesh;
}
