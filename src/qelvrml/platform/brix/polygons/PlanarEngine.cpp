#include "qelvrml/platform/brix/polygons/PlanarEngine.h"

#include <geos_c.h>

#include <algorithm>
#include <bit>
#include <utility>

namespace qelvrml {
namespace {

// Hands geometries over to whoever takes bare pointers.
std::vector<GEOSGeometry*> Release(std::vector<PlanarEngine::Geometry>& geometries) {
  std::vector<GEOSGeometry*> bare(geometries.size());
  std::transform(geometries.begin(), geometries.end(), bare.begin(), [](auto& geometry) { return geometry.release(); });
  return bare;
}

// The numbers below `count` in an order without runs (van der Corput's), for trees that rising ones would unbalance.
std::vector<std::size_t> Scatter(std::size_t count) {
  const std::size_t size = std::bit_ceil(count);
  std::vector<std::size_t> order;
  order.reserve(count);
  std::size_t reversed = 0;
  for (std::size_t i = 0; i < size; ++i) {
    if (reversed < count) order.push_back(reversed);
    std::size_t bit = size / 2;
    for (; (reversed & bit) != 0; bit /= 2) reversed ^= bit;
    reversed |= bit;
  }
  return order;
}

}  // namespace

PlanarEngine::PlanarEngine() : Handle(GEOS_init_r()) {}

PlanarEngine::~PlanarEngine() { GEOS_finish_r(Handle); }

void PlanarEngine::Deleter::operator()(GEOSGeom_t* geometry) const { GEOSGeom_destroy_r(Handle, geometry); }

int PlanarEngine::SideOf(const PlanarPoint& a, const PlanarPoint& b, const PlanarPoint& point) const {
  return GEOSOrientationIndex_r(Handle, a[0], a[1], b[0], b[1], point[0], point[1]);
}

PlanarEngine::Geometry PlanarEngine::MakeRing(const PlanarRing& ring) const {
  if (ring.size() < 3) return Own(nullptr);
  const bool closed = ring.front() == ring.back();
  PlanarRing points = ring;
  if (!closed) points.push_back(points.front());
  if (points.size() < 4) return Own(nullptr);
  GEOSCoordSequence* sequence =
      GEOSCoordSeq_copyFromBuffer_r(Handle, points.front().data(), static_cast<unsigned>(points.size()), 0, 0);
  return Own(sequence ? GEOSGeom_createLinearRing_r(Handle, sequence) : nullptr);
}

PlanarEngine::Geometry PlanarEngine::Collect(std::vector<Geometry> lines) const {
  std::vector<GEOSGeometry*> bare = Release(lines);
  return Own(
      GEOSGeom_createCollection_r(Handle, GEOS_MULTILINESTRING, bare.data(), static_cast<unsigned>(bare.size())));
}

PlanarEngine::Geometry PlanarEngine::MakeLines(std::span<const PlanarRing> rings) const {
  std::vector<Geometry> lines;
  for (const PlanarRing& ring : rings) {
    if (Geometry line = MakeRing(ring)) lines.push_back(std::move(line));
  }
  return Collect(std::move(lines));
}

PlanarEngine::Geometry PlanarEngine::MakeLines(std::span<const PlanarSegment> segments) const {
  std::vector<Geometry> lines;
  for (const std::size_t i : Scatter(segments.size())) {
    GEOSCoordSequence* ends = GEOSCoordSeq_copyFromBuffer_r(Handle, segments[i].A.data(), 2, 0, 0);
    if (Geometry line = Own(ends ? GEOSGeom_createLineString_r(Handle, ends) : nullptr))
      lines.push_back(std::move(line));
  }
  return Collect(std::move(lines));
}

PlanarEngine::Geometry PlanarEngine::MakePolygon(const PlanarPolygon& polygon) const {
  Geometry outline = MakeRing(polygon.Outline);
  if (!outline) return outline;
  std::vector<Geometry> holes;
  for (const PlanarRing& hole : polygon.Holes) {
    if (Geometry ring = MakeRing(hole)) holes.push_back(std::move(ring));
  }
  std::vector<GEOSGeometry*> bare = Release(holes);
  return Own(GEOSGeom_createPolygon_r(Handle, outline.release(), bare.data(), static_cast<unsigned>(bare.size())));
}

std::vector<const GEOSGeometry*> PlanarEngine::PartsOf(const Geometry& collection) const {
  std::vector<const GEOSGeometry*> parts;
  const int count = collection ? GEOSGetNumGeometries_r(Handle, collection.get()) : 0;
  for (int i = 0; i < count; ++i) {
    const GEOSGeometry* part = GEOSGetGeometryN_r(Handle, collection.get(), i);
    if (part && !GEOSisEmpty_r(Handle, part)) parts.push_back(part);
  }
  return parts;
}

// The points of a ring without the repeated last one.
PlanarRing PlanarEngine::ReadRing(const GEOSGeometry* ring) const {
  const GEOSCoordSequence* sequence = GEOSGeom_getCoordSeq_r(Handle, ring);
  unsigned size = 0;
  if (!sequence || !GEOSCoordSeq_getSize_r(Handle, sequence, &size) || size == 0) return {};
  PlanarRing points(size);
  if (!GEOSCoordSeq_copyToBuffer_r(Handle, sequence, points.front().data(), 0, 0)) return {};
  points.pop_back();
  return points;
}

PlanarPoint PlanarEngine::ReadPoint(const Geometry& point) const {
  PlanarPoint place = {};
  if (point) {
    GEOSGeomGetX_r(Handle, point.get(), &place[0]);
    GEOSGeomGetY_r(Handle, point.get(), &place[1]);
  }
  return place;
}

PlanarPolygon PlanarEngine::ReadPolygon(const GEOSGeometry* polygon) const {
  PlanarPolygon result;
  result.Outline = ReadRing(GEOSGetExteriorRing_r(Handle, polygon));
  const int holes = GEOSGetNumInteriorRings_r(Handle, polygon);
  for (int i = 0; i < holes; ++i) result.Holes.push_back(ReadRing(GEOSGetInteriorRingN_r(Handle, polygon, i)));
  return result;
}

}  // namespace qelvrml
