#include "qelvrml/platform/brixex/shapes/PointRange.h"

#include <array>
#include <cmath>

#include "qelvrml/platform/brix/polygons/PolygonTriangles.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"

namespace qelvrml {
namespace {

brixVector NormalOf(std::span<const brixFloatPoint> outline) {
  brixFloatPointArray points;
  points.Assign(outline);
  return ComputeNormalForPoints(points);
}

// The outline seen against its normal, in two coordinates of its dominant plane.
PlanarRing Project(std::span<const brixFloatPoint> outline, const brixVector& normal) {
  const std::array<float, 3> n = {normal.x, normal.y, normal.z};
  std::size_t drop = 0;
  for (std::size_t i = 1; i < 3; ++i) {
    if (std::fabs(n[i]) > std::fabs(n[drop])) drop = i;
  }
  const bool flipped = n[drop] < 0.0F;
  const std::size_t u = (drop + 1) % 3;
  const std::size_t v = (drop + 2) % 3;
  PlanarRing ring;
  ring.reserve(outline.size());
  for (const brixFloatPoint& point : outline) {
    const std::array<double, 3> p = {point.x, point.y, point.z};
    ring.push_back(flipped ? PlanarPoint{p[v], p[u]} : PlanarPoint{p[u], p[v]});
  }
  return ring;
}

double Bend(const PlanarPoint& a, const PlanarPoint& b, const PlanarPoint& c) {
  return (b[0] - a[0]) * (c[1] - b[1]) - (b[1] - a[1]) * (c[0] - b[0]);
}

// A counter-clockwise ring that never bends to the right and turns round once.
bool IsConvex(const PlanarRing& ring) {
  const std::size_t n = ring.size();
  int turnsBack = 0;  // changes between going left and going right; a simple convex ring has two
  bool wasRight = ring[0][0] > ring[n - 1][0];
  for (std::size_t i = 0; i < n; ++i) {
    const PlanarPoint& next = ring[(i + 1) % n];
    if (Bend(ring[i], next, ring[(i + 2) % n]) < 0.0) return false;
    const bool right = next[0] > ring[i][0];
    if (right != wasRight) ++turnsBack;
    wasRight = right;
  }
  return turnsBack <= 2;
}

std::vector<unsigned> Fan(std::size_t size) {
  std::vector<unsigned> corners;
  for (unsigned i = 2; i < size; ++i) corners.insert(corners.end(), {0U, i - 1, i});
  return corners;
}

std::vector<unsigned> Triangulate(PlanarRing ring) {
  if (ring.size() == 3 || IsConvex(ring)) return Fan(ring.size());
  const std::size_t size = ring.size();
  std::vector<unsigned> corners = TriangulatePolygon({std::move(ring), {}});
  return corners.empty() ? Fan(size) : corners;
}

}  // namespace

void Transform(std::span<brixFloatPoint> points, const brixMatrix4x4& matrix) {
  for (brixFloatPoint& point : points) point = point * matrix;
}

brixBBox BoxOf(std::span<const brixFloatPoint> points) {
  brixBBox box;
  for (const brixFloatPoint& point : points) box.Add(point);
  return box;
}

void AddPolygon(std::span<const brixFloatPoint> outline, brixEvaluation& result) {
  if (outline.size() < 3) return;
  const auto first = static_cast<unsigned>(result.Points.size());
  const brixVector normal = NormalOf(outline);
  result.Points.insert(result.Points.end(), outline.begin(), outline.end());
  result.Normals.insert(result.Normals.end(), outline.size(), normal);
  for (const unsigned corner : Triangulate(Project(outline, normal))) result.Triangles.push_back(first + corner);
}

void ComputePointNormals(brixEvaluation& result) {
  result.Normals.assign(result.Points.size(), brixVector());
  for (std::size_t i = 0; i + 2 < result.Triangles.size(); i += 3) {
    const unsigned* corner = &result.Triangles[i];
    const brixFloatPoint& a = result.Points[corner[0]];
    const brixVector area =
        CrossProduct(brixVector(a, result.Points[corner[1]]), brixVector(a, result.Points[corner[2]]));
    for (int k = 0; k < 3; ++k) result.Normals[corner[k]] = result.Normals[corner[k]] + area;
  }
  for (brixVector& normal : result.Normals) normal.Normalize();
}

}  // namespace qelvrml
