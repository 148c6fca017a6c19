#include "view/Geometry.h"

#include <bit>
#include <cmath>
#include <utility>

#include "view/Mesh.h"

namespace {

// A component of the place that points are given from: 0, unless the box is so far away that the differences of its
// points from this place are exact. They are between numbers that one is at most twice the other of.
float OriginOf(float from, float to) {
  const double middle = (static_cast<double>(from) + to) / 2.0;
  const double half = (static_cast<double>(to) - from) / 2.0;
  return std::abs(middle) > 16.0 * half ? static_cast<float>(middle) : 0.0F;
}

/// Columns of what is drawn.
class GeometryColumns {
public:
  GeometryColumns(const Scene& scene, const brixFloatPoint& origin)
      : From(scene), Origin(origin), PartPoints(scene.Parts.size()), PartIndices(scene.Parts.size()) {}

  void Add(const Batch& batch) {
    unsigned first = 0;
    for (const std::size_t part : batch.Parts) {
      const Mesh mesh = MakeMesh(From.Parts[part].Form, Origin, batch.Kind.Smooth);
      for (const MeshPoint& point : mesh.Points) Add(point, batch.Kind);
      for (const unsigned index : mesh.Indices) Indices.push_back(first + index);
      first += static_cast<unsigned>(mesh.Points.size());
      PartPoints[part] = static_cast<std::uint32_t>(mesh.Points.size());
      PartIndices[part] = static_cast<std::uint32_t>(mesh.Indices.size());
    }
  }

  void MoveTo(PageColumns& columns) {
    columns.Add("x", std::move(X));
    columns.Add("y", std::move(Y));
    columns.Add("z", std::move(Z));
    columns.Add("normalX", std::move(NormalX));
    columns.Add("normalY", std::move(NormalY));
    columns.Add("s", std::move(S));
    columns.Add("t", std::move(T));
    columns.Add("indices", std::move(Indices));
    columns.Add("partPoints", std::move(PartPoints));
    columns.Add("partIndices", std::move(PartIndices));
    AddBoxes(columns);
  }

private:
  void Add(const MeshPoint& point, const BatchKind& kind) {
    X.push_back(point.Place[0]);
    Y.push_back(point.Place[1]);
    Z.push_back(point.Place[2]);
    if (kind.Smooth) {
      NormalX.push_back(point.Normal[0]);
      NormalY.push_back(point.Normal[1]);
    }
    if (kind.Texture != Look::NoTexture) {
      S.push_back(point.Texture[0]);
      T.push_back(point.Texture[1]);
    }
  }

  void AddBoxes(PageColumns& columns) const {
    const auto add = [&](const char* name, auto value) {
      PageColumns::Column column;
      for (const Part& part : From.Parts) column.push_back(std::bit_cast<std::uint32_t>(value(part.Box)));
      columns.Add(name, std::move(column));
    };
    add("partMinimumX", [&](const brixBBox& box) { return box.GetMinimum().x - Origin.x; });
    add("partMinimumY", [&](const brixBBox& box) { return box.GetMinimum().y - Origin.y; });
    add("partMinimumZ", [&](const brixBBox& box) { return box.GetMinimum().z - Origin.z; });
    add("partMaximumX", [&](const brixBBox& box) { return box.GetMaximum().x - Origin.x; });
    add("partMaximumY", [&](const brixBBox& box) { return box.GetMaximum().y - Origin.y; });
    add("partMaximumZ", [&](const brixBBox& box) { return box.GetMaximum().z - Origin.z; });
  }

  const Scene& From;
  brixFloatPoint Origin;
  PageColumns::Column X, Y, Z;
  PageColumns::Column NormalX, NormalY;
  PageColumns::Column S, T;
  PageColumns::Column Indices;
  PageColumns::Column PartPoints, PartIndices;
};

}  // namespace

brixFloatPoint OriginOf(const Scene& scene) {
  brixBBox box;
  for (const Part& part : scene.Parts) box.Add(part.Box);
  const brixFloatPoint& from = box.GetMinimum();
  const brixFloatPoint& to = box.GetMaximum();
  return {OriginOf(from.x, to.x), OriginOf(from.y, to.y), OriginOf(from.z, to.z)};
}

void AddGeometry(const Scene& scene, const std::vector<Batch>& batches, const brixFloatPoint& origin,
                 PageColumns& columns) {
  GeometryColumns geometry(scene, origin);
  PageColumns::Column partBatch(scene.Parts.size());
  for (std::size_t i = 0; i < batches.size(); ++i) {
    geometry.Add(batches[i]);
    for (const std::size_t part : batches[i].Parts) partBatch[part] = static_cast<std::uint32_t>(i);
  }
  geometry.MoveTo(columns);
  columns.Add("partBatch", std::move(partBatch));
}
