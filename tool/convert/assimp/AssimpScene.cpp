#include "convert/assimp/AssimpScene.h"

#include <assimp/material.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>
#include <vector>

#include "convert/assimp/Meshes.h"

namespace {

template <class Value>
void Set(aiMaterial& material, const Value& value, const char* key, unsigned type, unsigned index) {
  material.AddProperty(&value, 1, key, type, index);
}

void SetText(aiMaterial& material, const std::string& text, const char* key, unsigned type, unsigned index) {
  const aiString value(text);
  material.AddProperty(&value, key, type, index);
}

std::array<float, 3> PlainColour(const Part& part) {
  return part.Form.Triangles.empty() ? LineColour(part.Surface) : part.Surface.Diffuse;
}

std::unique_ptr<aiMaterial> MakeMaterial(const Part& part, const std::string& name) {
  const auto toColour = [](const std::array<float, 3>& c) { return aiColor3D(c[0], c[1], c[2]); };
  const Look& look = part.Surface;
  auto material = std::make_unique<aiMaterial>();
  SetText(*material, name, AI_MATKEY_NAME);
  Set(*material, look.Opacity, AI_MATKEY_OPACITY);
  Set(*material, toColour(PlainColour(part)), AI_MATKEY_COLOR_DIFFUSE);
  if (part.Form.Triangles.empty()) return material;
  Set(*material, toColour(look.Specular), AI_MATKEY_COLOR_SPECULAR);
  Set(*material, toColour(look.Emission), AI_MATKEY_COLOR_EMISSIVE);
  Set(*material, look.Shininess, AI_MATKEY_SHININESS);
  return material;
}

// What assimp keeps of a name, cut between characters.
aiString ToName(std::string name) {
  constexpr std::size_t Longest = 1000;
  std::size_t end = std::min(name.size(), Longest);
  while (end < name.size() && end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;
  name.resize(end);
  return aiString(name);
}

/// Hands what `items` own over to assimp.
template <class Item>
void HandOver(std::vector<std::unique_ptr<Item>>& items, Item**& array, unsigned& count) {
  array = new Item*[items.size()];
  count = static_cast<unsigned>(items.size());
  std::transform(items.begin(), items.end(), array, [](std::unique_ptr<Item>& item) { return item.release(); });
}

/// Makes nodes, meshes and materials of a scene.
class AssimpSceneMaker {
public:
  AssimpSceneMaker(const Scene& scene, std::span<const std::string> images) : Source(scene), Images(images) {}

  std::unique_ptr<aiScene> Make() {
    auto made = std::make_unique<aiScene>();
    made->mRootNode = MakeNode(Source.Root).release();
    HandOver(Meshes, made->mMeshes, made->mNumMeshes);
    HandOver(Materials, made->mMaterials, made->mNumMaterials);
    return made;
  }

private:
  std::unique_ptr<aiNode> MakeNode(const SceneGroup& group) {
    auto node = std::make_unique<aiNode>();
    node->mName = ToName(group.Name);
    std::vector<std::unique_ptr<aiNode>> children;
    for (const std::size_t index : group.Parts) children.push_back(MakeNode(Source.Parts[index], group));
    for (const SceneGroup& inner : group.Groups) children.push_back(MakeNode(inner));
    for (const std::unique_ptr<aiNode>& child : children) child->mParent = node.get();
    if (!children.empty()) HandOver(children, node->mChildren, node->mNumChildren);
    return node;
  }

  // Names of groups don't get into files that have no tree, so that of its group is lent to a part without one.
  std::unique_ptr<aiNode> MakeNode(const Part& part, const SceneGroup& group) {
    auto node = std::make_unique<aiNode>();
    node->mName = ToName(part.Name.empty() && !group.Name.empty() ? group.Name : PartName(part));
    std::unique_ptr<aiMesh> mesh = MakeMesh(part.Form);
    mesh->mName = node->mName;
    mesh->mMaterialIndex = MaterialOf(part);
    node->mNumMeshes = 1;
    node->mMeshes = new unsigned[1]{static_cast<unsigned>(Meshes.size())};
    Meshes.push_back(std::move(mesh));
    return node;
  }

  unsigned MaterialOf(const Part& part) {
    const bool isSurface = !part.Form.Triangles.empty();
    const auto index = static_cast<unsigned>(Materials.size());
    const auto [place, isNew] = MaterialIndices.try_emplace({part.Surface, isSurface}, index);
    if (!isNew) return place->second;
    Materials.push_back(MakeMaterial(part, "material" + std::to_string(index + 1)));
    if (part.Surface.Texture != Look::NoTexture) {
      const std::string& image = Images[static_cast<std::size_t>(part.Surface.Texture)];
      SetText(*Materials.back(), image, AI_MATKEY_TEXTURE_DIFFUSE(0));
    }
    return index;
  }

  const Scene& Source;
  std::span<const std::string> Images;
  std::vector<std::unique_ptr<aiMesh>> Meshes;
  std::vector<std::unique_ptr<aiMaterial>> Materials;
  std::map<std::pair<Look, bool>, unsigned> MaterialIndices;
};

// Triangles and dots; the points of dots are in no triangle.
Shape JoinParts(const Scene& scene, const Format& format, std::vector<aiColor4D>& colours) {
  Shape joined;
  for (const Part& part : scene.Parts) {
    if (!Holds(format, part.Form)) continue;
    Append(part.Form, joined);
    joined.TextureCoordinates.clear();
    joined.Normals.resize(joined.Points.size(), {0.0F, 0.0F, 1.0F});
    const std::array<float, 3> c = PlainColour(part);
    colours.resize(joined.Points.size(), {c[0], c[1], c[2], part.Surface.Opacity});
  }
  return joined;
}

}  // namespace

std::unique_ptr<aiScene> MakeAssimpScene(const Scene& scene, std::span<const std::string> images) {
  return AssimpSceneMaker(scene, images).Make();
}

std::unique_ptr<aiScene> MakeSingleMeshScene(const Scene& scene, const Format& format) {
  std::vector<aiColor4D> colours;
  Shape joined = JoinParts(scene, format, colours);
  if (joined.Triangles.empty()) joined.Normals.clear();
  std::vector<std::unique_ptr<aiMesh>> meshes;
  meshes.push_back(MakeMesh(joined));
  if (joined.Triangles.empty()) meshes[0]->mNumFaces = 0;
  if (format.ColoursPoints) {
    meshes[0]->mColors[0] = new aiColor4D[colours.size()];
    std::copy(colours.begin(), colours.end(), meshes[0]->mColors[0]);
  }
  std::vector<std::unique_ptr<aiMaterial>> materials;
  materials.push_back(std::make_unique<aiMaterial>());
  auto made = std::make_unique<aiScene>();
  made->mRootNode = new aiNode;
  made->mRootNode->mNumMeshes = 1;
  made->mRootNode->mMeshes = new unsigned[1]{0};
  HandOver(meshes, made->mMeshes, made->mNumMeshes);
  HandOver(materials, made->mMaterials, made->mNumMaterials);
  return made;
}
