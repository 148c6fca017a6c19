#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

#include <geos_c.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>

namespace qelvrml {
namespace {

/// A context of the geometry library: it belongs to one call and reports nothing.
class Engine {
public:
  Engine() : Handle(GEOS_init_r()) {}
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine() { GEOS_finish_r(Handle); }
  GEOSContextHandle_t Get() const { return Handle; }

  struct Deleter {
    GEOSContextHandle_t Handle;
    void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(Handle, geometry); }
  };
  using Geometry = std::unique_ptr<GEOSGeometry, Deleter>;
  Geometry Own(GEOSGeometry* geometry) const { return {geometry, Deleter{Handle}}; }

  /// Null for fewer than three points.
  Geometry MakeRing(const PlanarRing& ring) const {
    if (ring.size() < 3) return Own(nullptr);
    const bool closed = ring.front() == ring.back();
    PlanarRing points = ring;
    if (!closed) points.push_back(points.front());
    if (points.size() < 4) return Own(nullptr);
    GEOSCoordSequence* sequence =
        GEOSCoordSeq_copyFromBuffer_r(Handle, points.front().data(), static_cast<unsigned>(points.size()), 0, 0);
    return Own(sequence ? GEOSGeom_createLinearRing_r(Handle, sequence) : nullptr);
  }

  /// The points of a ring without the repeated last one.
  PlanarRing ReadRing(const GEOSGeometry* ring) const {
    const GEOSCoordSequence* sequence = GEOSGeom_getCoordSeq_r(Handle, ring);
    unsigned size = 0;
    if (!sequence || !GEOSCoordSeq_getSize_r(Handle, sequence, &size) || size == 0) return {};
    PlanarRing points(size);
    if (!GEOSCoordSeq_copyToBuffer_r(Handle, sequence, points.front().data(), 0, 0)) return {};
    points.pop_back();
    return points;
  }

  PlanarPolygon ReadPolygon(const GEOSGeometry* polygon) const {
    PlanarPolygon result;
    result.Outline = ReadRing(GEOSGetExteriorRing_r(Handle, polygon));
    const int holes = GEOSGetNumInteriorRings_r(Handle, polygon);
    for (int i = 0; i < holes; ++i) result.Holes.push_back(ReadRing(GEOSGetInteriorRingN_r(Handle, polygon, i)));
    return result;
  }

private:
  GEOSContextHandle_t Handle;
};

double SignedArea(std::span<const PlanarPoint> ring) {
  double area = 0.0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const PlanarPoint& a = ring[i];
    const PlanarPoint& b = ring[(i + 1) % ring.size()];
    area += (a[0] - ring[0][0]) * (b[1] - ring[0][1]) - (b[0] - ring[0][0]) * (a[1] - ring[0][1]);
  }
  return area / 2.0;
}

// Whether the points don't all lie on one line.
bool HasArea(const PlanarRing& ring) {
  const PlanarPoint& origin = ring.front();
  const auto other = std::find_if(ring.begin(), ring.end(), [&origin](const PlanarPoint& p) { return p != origin; });
  if (other == ring.end()) return false;
  return std::any_of(other, ring.end(), [&](const PlanarPoint& p) {
    return ((*other)[0] - origin[0]) * (p[1] - origin[1]) != (p[0] - origin[0]) * ((*other)[1] - origin[1]);
  });
}

bool IsFinite(const PlanarRing& ring) {
  return std::all_of(ring.begin(), ring.end(),
                     [](const PlanarPoint& p) { return std::isfinite(p[0]) && std::isfinite(p[1]); });
}

struct PointHash {
  std::size_t operator()(const PlanarPoint& p) const {
    const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value + 0.0); };  // one zero only
    return static_cast<std::size_t>((bits(p[0]) * 0x9E3779B97F4A7C15U) ^
                                    std::rotl(bits(p[1]) * 0xC2B2AE3D27D4EB4FU, 29));
  }
};

using PointIndex = std::unordered_map<PlanarPoint, unsigned, PointHash>;

PointIndex IndexPoints(const PlanarPolygon& polygon) {
  PointIndex index;
  unsigned next = 0;
  for (const PlanarPoint& point : polygon.Outline) index.emplace(point, next++);
  for (const PlanarRing& hole : polygon.Holes) {
    for (const PlanarPoint& point : hole) index.emplace(point, next++);
  }
  return index;
}

// Hands geometries over to whoever takes bare pointers.
std::vector<GEOSGeometry*> Release(std::vector<Engine::Geometry>& geometries) {
  std::vector<GEOSGeometry*> bare(geometries.size());
  std::transform(geometries.begin(), geometries.end(), bare.begin(), [](Engine::Geometry& g) { return g.release(); });
  return bare;
}

Engine::Geometry MakePolygon(const Engine& engine, const PlanarPolygon& polygon) {
  Engine::Geometry outline = engine.MakeRing(polygon.Outline);
  if (!outline) return outline;
  std::vector<Engine::Geometry> holes;
  for (const PlanarRing& hole : polygon.Holes) {
    if (Engine::Geometry ring = engine.MakeRing(hole)) holes.push_back(std::move(ring));
  }
  std::vector<GEOSGeometry*> bare = Release(holes);
  return engine.Own(
      GEOSGeom_createPolygon_r(engine.Get(), outline.release(), bare.data(), static_cast<unsigned>(bare.size())));
}

}  // namespace

PlanarRing ToRing(const brixFloatPointArray& points) {
  PlanarRing ring;
  ring.reserve(points.GetSize());
  for (const brixFloatPoint& point : points.View()) ring.push_back({point.x, point.y});
  return ring;
}

std::vector<PlanarPolygon> GroupLoops(std::span<const PlanarRing> loops) {
  const Engine engine;
  std::vector<Engine::Geometry> rings;
  for (const PlanarRing& loop : loops) {
    if (loop.size() < 3 || !IsFinite(loop) || !HasArea(loop)) continue;
    if (Engine::Geometry ring = engine.MakeRing(loop)) rings.push_back(std::move(ring));
  }
  std::vector<PlanarPolygon> polygons;
  if (rings.empty()) return polygons;

  // The union of the lines splits them where they cross; the areas between them alternate from outside to inside.
  std::vector<GEOSGeometry*> bare = Release(rings);
  const Engine::Geometry lines = engine.Own(GEOSGeom_createCollection_r(
      engine.Get(), GEOS_GEOMETRYCOLLECTION, bare.data(), static_cast<unsigned>(bare.size())));
  const Engine::Geometry noded = engine.Own(lines ? GEOSUnaryUnion_r(engine.Get(), lines.get()) : nullptr);
  const Engine::Geometry area = engine.Own(noded ? GEOSBuildArea_r(engine.Get(), noded.get()) : nullptr);
  if (!area) return polygons;
  const int count = GEOSGetNumGeometries_r(engine.Get(), area.get());
  for (int i = 0; i < count; ++i) {
    const GEOSGeometry* part = GEOSGetGeometryN_r(engine.Get(), area.get(), i);
    if (part && !GEOSisEmpty_r(engine.Get(), part)) polygons.push_back(engine.ReadPolygon(part));
  }
  return polygons;
}

std::vector<unsigned> TriangulatePolygon(const PlanarPolygon& polygon) {
  std::vector<unsigned> corners;
  if (!IsFinite(polygon.Outline) || !std::all_of(polygon.Holes.begin(), polygon.Holes.end(), IsFinite)) return corners;

  const Engine engine;
  const Engine::Geometry shape = MakePolygon(engine, polygon);
  if (!shape || GEOSisValid_r(engine.Get(), shape.get()) != 1) return corners;
  const Engine::Geometry triangles = engine.Own(GEOSConstrainedDelaunayTriangulation_r(engine.Get(), shape.get()));
  const int count = triangles ? GEOSGetNumGeometries_r(engine.Get(), triangles.get()) : 0;
  const PointIndex index = IndexPoints(polygon);
  for (int i = 0; i < count; ++i) {
    const GEOSGeometry* triangle = GEOSGetGeometryN_r(engine.Get(), triangles.get(), i);
    PlanarRing ring = engine.ReadRing(GEOSGetExteriorRing_r(engine.Get(), triangle));
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
