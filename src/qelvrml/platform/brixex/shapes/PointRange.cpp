#include "qelvrml/platform/brixex/shapes/PointRange.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "qelvrml/platform/brix/polygons/PolygonTriangles.h"
#include "qelvrml/platform/brixex/NewellSum.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"

namespace qelvrml {
namespace {

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

using Overlap = std::array<bool, 3>;

// The axes along which some points are seen in one place.
Overlap FindOverlap(std::span<const brixFloatPoint> points) {
  Overlap axes{};
  for (std::size_t i = 1; i < points.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      const bool x = points[i].x == points[k].x;
      const bool y = points[i].y == points[k].y;
      const bool z = points[i].z == points[k].z;
      axes[0] |= y && z;
      axes[1] |= z && x;
      axes[2] |= x && y;
    }
  }
  return axes;
}

// Whether the normal is longest along the axis, however it is rounded. A coordinate that isn't finite spoils the sums
// along the two other axes alike.
bool IsDominant(std::size_t axis, const std::array<double, 3>& sum) {
  constexpr double Clearly = 1.001;
  const double along = std::fabs(sum[axis]);
  return along > Clearly * std::fabs(sum[(axis + 1) % 3]) && along > Clearly * std::fabs(sum[(axis + 2) % 3]);
}

// Whether Project surely gives different places for all points.
bool AreSeenApart(std::span<const brixFloatPoint> outline) {
  const Overlap overlap = FindOverlap(outline);
  if (overlap == Overlap{}) return true;
  const std::array<double, 3> sum = NewellSum(outline);
  return (!overlap[0] && IsDominant(0, sum)) || (!overlap[1] && IsDominant(1, sum)) ||
         (!overlap[2] && IsDominant(2, sum));
}

bool AreDistinct(PlanarRing ring) {
  std::sort(ring.begin(), ring.end());
  return std::adjacent_find(ring.begin(), ring.end()) == ring.end();
}

}  // namespace

void AddPolygon(std::span<const brixFloatPoint> outline, brixEvaluation& result) {
  if (outline.size() < 3) return;
  const auto first = static_cast<unsigned>(result.Points.size());
  const brixVector normal = ComputeNormalForPoints(outline);
  result.Points.insert(result.Points.end(), outline.begin(), outline.end());
  result.Normals.insert(result.Normals.end(), outline.size(), normal);
  for (const unsigned corner : Triangulate(Project(outline, normal))) result.Triangles.push_back(first + corner);
}

// A fan has two triangles fewer than points, and so has any triangulation of a ring whose points are all in different
// places: either it is simple, or there is none and it becomes a fan.
std::size_t CountPolygonTriangles(std::span<const brixFloatPoint> outline) {
  constexpr std::size_t Few = 8;  // so that pairs of points are looked at more quickly than they are sorted
  if (outline.size() < 3) return 0;
  const std::size_t most = outline.size() - 2;
  if (most == 1 || (outline.size() <= Few && AreSeenApart(outline))) return most;
  PlanarRing ring = Project(outline, ComputeNormalForPoints(outline));
  // Not-a-number can't be sorted, and has no triangulation.
  return !IsFinite(ring) || AreDistinct(ring) ? most : Triangulate(std::move(ring)).size() / 3;
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
