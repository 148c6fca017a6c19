#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

#include <geos_c.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>

#include "qelvrml/platform/brix/polygons/PlanarEngine.h"

namespace qelvrml {
namespace {

double SignedArea(std::span<const PlanarPoint> ring) {
  double area = 0.0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const PlanarPoint& a = ring[i];
    const PlanarPoint& b = ring[(i + 1) % ring.size()];
    area += (a[0] - ring[0][0]) * (b[1] - ring[0][1]) - (b[0] - ring[0][0]) * (a[1] - ring[0][1]);
  }
  return area / 2.0;
}

template <typename Visitor>
void ForEachPoint(PlanarPolygon& polygon, const Visitor& visit) {
  for (PlanarPoint& point : polygon.Outline) visit(point);
  for (PlanarRing& hole : polygon.Holes) {
    for (PlanarPoint& point : hole) visit(point);
  }
}

// The polygon at a size at which the geometry library's fixed tolerances don't matter. A power of two rounds nothing.
PlanarPolygon Enlarge(PlanarPolygon polygon) {
  constexpr int wanted = 24;
  double largest = std::numeric_limits<float>::min();
  ForEachPoint(polygon, [&](const PlanarPoint& p) { largest = std::max({largest, std::fabs(p[0]), std::fabs(p[1])}); });
  const double factor = std::ldexp(1.0, wanted - std::ilogb(largest));
  ForEachPoint(polygon, [&](PlanarPoint& p) { p = {p[0] * factor, p[1] * factor}; });
  return polygon;
}

struct PointHash {
  std::size_t operator()(const PlanarPoint& p) const {
    const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value + 0.0); };  // one zero only
    return static_cast<std::size_t>((bits(p[0]) * 0x9E3779B97F4A7C15U) ^
                                    std::rotl(bits(p[1]) * 0xC2B2AE3D27D4EB4FU, 29));
  }
};

using PointIndex = std::unordered_map<PlanarPoint, unsigned, PointHash>;

PointIndex IndexPoints(PlanarPolygon& polygon) {
  PointIndex index;
  unsigned next = 0;
  ForEachPoint(polygon, [&](const PlanarPoint& point) { index.emplace(point, next++); });
  return index;
}

}  // namespace

PlanarRing ToRing(const brixFloatPointArray& points) {
  PlanarRing ring;
  ring.reserve(points.GetSize());
  for (const brixFloatPoint& point : points.View()) ring.push_back({point.x, point.y});
  return ring;
}

bool IsFinite(const PlanarRing& ring) {
  return std::all_of(ring.begin(), ring.end(),
                     [](const PlanarPoint& p) { return std::isfinite(p[0]) && std::isfinite(p[1]); });
}

std::vector<unsigned> TriangulatePolygon(const PlanarPolygon& polygon) {
  std::vector<unsigned> corners;
  if (!IsFinite(polygon.Outline) || !std::all_of(polygon.Holes.begin(), polygon.Holes.end(), IsFinite)) return corners;

  const PlanarEngine engine;
  PlanarPolygon enlarged = Enlarge(polygon);
  const PlanarEngine::Geometry shape = engine.MakePolygon(enlarged);
  if (!shape || GEOSisValid_r(engine.Get(), shape.get()) != 1) return corners;
  const PlanarEngine::Geometry triangles =
      engine.Own(GEOSConstrainedDelaunayTriangulation_r(engine.Get(), shape.get()));
  const PointIndex index = IndexPoints(enlarged);
  for (const GEOSGeometry* triangle : engine.PartsOf(triangles)) {
    PlanarRing ring = engine.ReadPolygon(triangle).Outline;
    if (ring.size() != 3) continue;
    if (SignedArea(ring) < 0.0) std::swap(ring[1], ring[2]);
    for (const PlanarPoint& corner : ring) {
      const auto known = index.find(corner);
      if (known == index.end()) return {};
      corners.push_back(known->second);
    }
  }
  return corners;
}

}  // namespace qelvrml
