#include "measure/ObjectMeasures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

#include "info/Census.h"
#include "measure/surfaces/Revolved.h"
#include "measure/surfaces/Weld.h"
#include "scene/Shape.h"

namespace {

bool HasNumbers(const brixFloatPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

Sheet TriangleAt(const Shape& shape, std::size_t place, const Vector3& origin) {
  const auto corner = [&](std::size_t i) { return shape.Points[shape.Triangles[place + i]]; };
  return SheetOf(corner(0), corner(1), corner(2), origin);
}

double AreaOf(const Shape& shape) {
  double area = 0.0;
  for (std::size_t i = 0; i < shape.Triangles.size(); i += 3) area += Length(TriangleAt(shape, i, {}).Area);
  return area;
}

/// A triangle of a shape by the numbers of its corners, the least one first.
struct NumberedTriangle {
  std::array<unsigned, 3> Corners;
  std::size_t Place;  ///< of its first corner in the shape
  bool operator<(const NumberedTriangle& other) const {
    return std::tie(Corners, Place) < std::tie(other.Corners, other.Place);
  }
};

// Triangles whose corners have different numbers; of those that stand there several times, the same way round, one.
std::vector<NumberedTriangle> DifferentTriangles(const Shape& shape, const std::vector<unsigned>& numbers) {
  std::vector<NumberedTriangle> triangles;
  triangles.reserve(shape.Triangles.size() / 3);
  for (std::size_t i = 0; i < shape.Triangles.size(); i += 3) {
    NumberedTriangle triangle = {{}, i};
    auto& corners = triangle.Corners;
    for (std::size_t k = 0; k < 3; ++k) corners[k] = numbers[shape.Triangles[i + k]];
    std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()), corners.end());
    if (corners[0] != corners[1] && corners[1] != corners[2] && corners[2] != corners[0]) triangles.push_back(triangle);
  }
  std::sort(triangles.begin(), triangles.end());
  const auto same = [](const auto& a, const auto& b) { return a.Corners == b.Corners; };
  triangles.erase(std::unique(triangles.begin(), triangles.end(), same), triangles.end());
  return triangles;
}

JoinedSurface JoinTriangles(const Shape& shape) {
  const std::vector<NumberedTriangle> triangles = DifferentTriangles(shape, WeldEqual(shape.Points));
  const auto count = static_cast<unsigned>(triangles.size());
  std::vector<EdgeUse> uses;
  uses.reserve(3 * triangles.size());
  for (unsigned sheet = 0; sheet < count; ++sheet) {
    const auto& [a, b, c] = triangles[sheet].Corners;
    uses.insert(uses.end(), {{a, b, sheet}, {b, c, sheet}, {c, a, sheet}});
  }
  const auto sheetAt = [&, origin = ToVector(shape.Points.front())](unsigned sheet) {
    return TriangleAt(shape, triangles[sheet].Place, origin);
  };
  return JoinSheets(count, sheetAt, std::move(uses));
}

brixBBox BoxOf(const Shape& shape) {
  brixBBox box;
  for (const brixFloatPoint& point : shape.Points) box.Add(point);
  return box;
}

void SumUp(const JoinedSurface& surface, std::span<const brixFloatPoint> corners, Measures& sum, OpenSheets& sheets,
           OpenSheets::Range& open) {
  if (!surface.IsClosed) {
    open = sheets.Add(surface, corners);
  } else if (!surface.Sheets.empty()) {
    sum.AddBody(VolumeOf(surface), surface.NonManifoldEdges);
  }
}

// Empty if the object can't be measured by formula.
std::optional<RevolvedSurface> MeasureRevolved(const brixBaseObject& object, const Resolution& resolution,
                                               Measures& sum) {
  std::optional<RevolvedSurface> surface = MakeRevolvedSurface(object);
  if (!surface) return surface;
  const brixBBox box = object.ComputeBBox();
  const std::size_t triangles = object.CountTriangles(ToleranceFor(object, resolution));
  const bool finite = HasNumbers(box.GetMinimum()) && HasNumbers(box.GetMaximum()) &&
                      std::all_of(surface->Corners.begin(), surface->Corners.end(), HasNumbers);
  if (triangles == 0 || !finite) return std::nullopt;
  sum.Box = box;
  sum.Area = surface->Area;
  sum.Faces = triangles;
  // By Euler's formula, for a rim has as many edges as there are triangles at it.
  const std::size_t rims = surface->Form.Joints.size();
  sum.Points = rims == 0 ? triangles / 2 + 2 : triangles + 2 - rims;
  return surface;
}

}  // namespace

Measures MeasureObject(const brixBaseObject& object, const Resolution& resolution, OpenSheets& sheets,
                       OpenSheets::Range& open) {
  Measures sum;
  if (const std::optional<RevolvedSurface> revolved = MeasureRevolved(object, resolution, sum)) {
    SumUp(revolved->Form, revolved->Corners, sum, sheets, open);
    return sum;
  }
  const Shape shape = MakeShape(object, resolution, nullptr);
  const PartCounts parts = CountParts(object);
  sum.Points = parts.Points > 0 ? parts.Points : shape.Points.size();
  sum.Faces = parts.Points > 0 ? parts.Faces : shape.Triangles.size() / 3;
  if (shape.IsEmpty()) return sum;
  sum.Box = BoxOf(shape);
  sum.Area = AreaOf(shape);
  SumUp(JoinTriangles(shape), shape.Points, sum, sheets, open);
  return sum;
}
