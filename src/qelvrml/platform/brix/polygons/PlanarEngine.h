#pragma once

#include <memory>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"
#include "qelvrml/platform/brix/polygons/SegmentTree.h"

struct GEOSContextHandle_HS;
struct GEOSGeom_t;

namespace qelvrml {

/// A context of the geometry library: it belongs to one call and reports nothing.
class PlanarEngine {
public:
  struct Deleter {
    GEOSContextHandle_HS* Handle;
    void operator()(GEOSGeom_t* geometry) const;
  };
  /// Null after a failure.
  using Geometry = std::unique_ptr<GEOSGeom_t, Deleter>;

  PlanarEngine();
  PlanarEngine(const PlanarEngine&) = delete;
  PlanarEngine& operator=(const PlanarEngine&) = delete;
  ~PlanarEngine();

  GEOSContextHandle_HS* Get() const { return Handle; }
  Geometry Own(GEOSGeom_t* geometry) const { return {geometry, Deleter{Handle}}; }

  /// 1 if the point lies left of the line from a to b, -1 right, 0 on it.
  int SideOf(const PlanarPoint& a, const PlanarPoint& b, const PlanarPoint& point) const;

  /// Null for fewer than three points.
  Geometry MakeRing(const PlanarRing& ring) const;
  Geometry MakeLines(std::span<const PlanarRing> rings) const;
  Geometry MakeLines(std::span<const PlanarSegment> segments) const;
  Geometry MakePolygon(const PlanarPolygon& polygon) const;

  /// The members of a collection; none for null.
  std::vector<const GEOSGeom_t*> PartsOf(const Geometry& collection) const;
  /// The origin if there is no point.
  PlanarPoint ReadPoint(const Geometry& point) const;
  PlanarPolygon ReadPolygon(const GEOSGeom_t* polygon) const;

private:
  Geometry Collect(std::vector<Geometry> lines) const;
  PlanarRing ReadRing(const GEOSGeom_t* ring) const;

  GEOSContextHandle_HS* Handle;
};

}  // namespace qelvrml
