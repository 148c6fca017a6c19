#include "view/Mesh.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <unordered_map>

#include "scene/Vector3.h"

namespace {

struct MeshPointHash {
  // FNV-1a, over words instead of bytes.
  std::size_t operator()(const MeshPoint& point) const {
    std::uint64_t hash = 14695981039346656037U;
    const auto add = [&hash](std::uint32_t word) { hash = (hash ^ word) * 1099511628211U; };
    for (const std::uint32_t word : point.Place) add(word);
    for (const std::uint32_t word : point.Normal) add(word);
    for (const std::uint32_t word : point.Texture) add(word);
    return hash ^ hash >> 32U;
  }
};

std::uint32_t BitsOf(float value) { return std::bit_cast<std::uint32_t>(value == 0.0F ? 0.0F : value); }

std::array<std::uint32_t, 2> StepsOf(const brixVector& normal) {
  const double sum = std::abs(normal.x) + std::abs(normal.y) + std::abs(normal.z);
  double x = normal.x / sum;
  double y = normal.y / sum;
  if (normal.z < 0.0F) {
    const double folded = (1.0 - std::abs(y)) * (x < 0.0 ? -1.0 : 1.0);
    y = (1.0 - std::abs(x)) * (y < 0.0 ? -1.0 : 1.0);
    x = folded;
  }
  const auto steps = [](double value) { return static_cast<std::uint32_t>(std::lround((value + 1.0) * NormalSteps)); };
  return {steps(x), steps(y)};
}

MeshPoint PointOf(const Shape& shape, std::size_t index, const brixFloatPoint& origin, bool withNormal) {
  const brixFloatPoint& place = shape.Points[index];
  MeshPoint point;
  point.Place = {BitsOf(place.x - origin.x), BitsOf(place.y - origin.y), BitsOf(place.z - origin.z)};
  if (withNormal) point.Normal = StepsOf(shape.Normals[index]);
  if (!shape.TextureCoordinates.empty()) {
    point.Texture = {BitsOf(shape.TextureCoordinates[index].x), BitsOf(shape.TextureCoordinates[index].y)};
  }
  return point;
}

}  // namespace

bool IsFacetted(const Shape& shape) {
  constexpr double LeastCosine = 0.99995;  // half a degree, which nobody sees
  for (std::size_t i = 0; i + 2 < shape.Triangles.size(); i += 3) {
    const auto corner = [&](std::size_t j) { return shape.Triangles[i + j]; };
    const auto place = [&](std::size_t j) { return ToVector(shape.Points[corner(j)]); };
    const Vector3 plane = Cross(place(1) - place(0), place(2) - place(0));
    const double length = Length(plane);
    for (std::size_t j = 0; j < 3; ++j) {
      const brixVector& normal = shape.Normals[corner(j)];
      if (Dot(plane, {normal.x, normal.y, normal.z}) < LeastCosine * length) return false;
    }
  }
  return true;
}

Mesh MakeMesh(const Shape& shape, const brixFloatPoint& origin, bool withNormals) {
  Mesh mesh;
  const bool areDots = shape.Triangles.empty() && shape.Segments.empty();
  std::unordered_map<MeshPoint, unsigned, MeshPointHash> places;
  std::vector<unsigned> newPlaces;
  newPlaces.reserve(shape.Points.size());
  for (std::size_t i = 0; i < shape.Points.size(); ++i) {
    const MeshPoint point = PointOf(shape, i, origin, withNormals);
    const auto next = static_cast<unsigned>(mesh.Points.size());
    const unsigned place = areDots ? next : places.try_emplace(point, next).first->second;
    if (place == next) mesh.Points.push_back(point);
    newPlaces.push_back(place);
  }
  mesh.Indices = shape.Triangles.empty() ? shape.Segments : shape.Triangles;
  for (unsigned& index : mesh.Indices) index = newPlaces[index];
  return mesh;
}
