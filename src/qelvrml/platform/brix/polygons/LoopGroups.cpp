#include "qelvrml/platform/brix/polygons/LoopGroups.h"

#include <geos_c.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <tuple>
#include <utility>

#include "qelvrml/platform/brix/polygons/LoopCrossings.h"
#include "qelvrml/platform/brix/polygons/PlanarEngine.h"
#include "qelvrml/platform/brix/polygons/SegmentTree.h"

namespace qelvrml {
namespace {

using Geometry = PlanarEngine::Geometry;

// Whether the points don't all lie on one line.
bool HasArea(const PlanarRing& ring) {
  const PlanarPoint& origin = ring.front();
  const auto other = std::find_if(ring.begin(), ring.end(), [&origin](const PlanarPoint& p) { return p != origin; });
  if (other == ring.end()) return false;
  return std::any_of(other, ring.end(), [&](const PlanarPoint& p) {
    return ((*other)[0] - origin[0]) * (p[1] - origin[1]) != (p[0] - origin[0]) * ((*other)[1] - origin[1]);
  });
}

// The distance between neighbouring floats at the largest coordinate: a float holds every multiple in that range.
double FloatStep(std::span<const PlanarSegment> segments) {
  double largest = std::numeric_limits<float>::min();
  for (const auto& [a, b] : segments) largest = std::max({largest, std::fabs(a[0]), std::fabs(a[1])});
  return std::ldexp(1.0, std::ilogb(largest) + 1 - std::numeric_limits<float>::digits);
}

// The segments cut where they meet, at points of a grid of floats, so that nothing crosses when the points become
// floats.
Geometry Cut(const PlanarEngine& engine, std::span<const PlanarSegment> segments) {
  const Geometry lines = engine.MakeLines(segments);
  return engine.Own(lines ? GEOSUnaryUnionPrec_r(engine.Get(), lines.get(), FloatStep(segments)) : nullptr);
}

std::vector<PlanarSegment> SidesOf(std::span<const PlanarPolygon> polygons) {
  std::vector<PlanarRing> rings;
  for (const PlanarPolygon& polygon : polygons) {
    rings.push_back(polygon.Outline);
    rings.insert(rings.end(), polygon.Holes.begin(), polygon.Holes.end());
  }
  return SegmentsOf(rings);
}

double DistanceOf(const PlanarPoint& point, const PlanarSegment& segment) {
  const auto& [a, b] = segment;
  const PlanarPoint way = {b[0] - a[0], b[1] - a[1]};
  const double along = (point[0] - a[0]) * way[0] + (point[1] - a[1]) * way[1];
  const double share = std::clamp(along / (way[0] * way[0] + way[1] * way[1]), 0.0, 1.0);
  return std::hypot(point[0] - a[0] - share * way[0], point[1] - a[1] - share * way[1]);
}

double DistanceOf(const PlanarPoint& point, std::span<const PlanarSegment> segments) {
  double distance = std::numeric_limits<double>::infinity();
  for (const PlanarSegment& segment : segments) distance = std::min(distance, DistanceOf(point, segment));
  return distance;
}

// A point inside the face and well away from its sides: the centroid of a face may lie outside or on a side, the other
// point in a sliver that sticks out of the face.
PlanarPoint InnerPoint(const PlanarEngine& engine, const GEOSGeometry* face, const PlanarPolygon& polygon) {
  const PlanarPoint point = engine.ReadPoint(engine.Own(GEOSPointOnSurface_r(engine.Get(), face)));
  const PlanarPoint centroid = engine.ReadPoint(engine.Own(GEOSGetCentroid_r(engine.Get(), face)));
  const std::vector<PlanarSegment> sides = SidesOf({&polygon, 1});
  if (DistanceOf(centroid, sides) <= DistanceOf(point, sides)) return point;
  const std::vector<bool> inside = FindInside(sides, {&centroid, 1});
  return !inside.empty() && inside.front() ? centroid : point;
}

// The faces between lines that lie inside an odd number of the loops.
std::vector<PlanarPolygon> FacesInside(const PlanarEngine& engine, const Geometry& lines,
                                       std::span<const PlanarSegment> loops) {
  const GEOSGeometry* bare = lines.get();
  const Geometry faces = engine.Own(bare ? GEOSPolygonize_r(engine.Get(), &bare, 1) : nullptr);
  std::vector<PlanarPolygon> polygons;
  std::vector<PlanarPoint> points;
  for (const GEOSGeometry* face : engine.PartsOf(faces)) {
    polygons.push_back(engine.ReadPolygon(face));
    points.push_back(InnerPoint(engine, face, polygons.back()));
  }
  const std::vector<bool> inside = FindInside(loops, points);
  std::vector<PlanarPolygon> kept;
  for (std::size_t i = 0; i < inside.size(); ++i) {
    if (inside[i]) kept.push_back(std::move(polygons[i]));
  }
  return kept;
}

// The segments without those that occur twice.
std::vector<PlanarSegment> WithoutShared(std::vector<PlanarSegment> segments) {
  for (PlanarSegment& segment : segments) {
    if (segment.B < segment.A) std::swap(segment.A, segment.B);
  }
  const auto before = [](const PlanarSegment& s, const PlanarSegment& t) {
    return std::tie(s.A, s.B) < std::tie(t.A, t.B);
  };
  std::sort(segments.begin(), segments.end(), before);
  std::vector<PlanarSegment> single;
  for (const PlanarSegment& segment : segments) {
    if (single.empty() || before(single.back(), segment)) {
      single.push_back(segment);
    } else {
      single.pop_back();
    }
  }
  return single;
}

// The areas that lie inside an odd number of loops that cross, as few faces as make them up.
std::vector<PlanarPolygon> AlternatingFaces(const PlanarEngine& engine, std::span<const PlanarSegment> loops) {
  std::vector<PlanarPolygon> faces = FacesInside(engine, Cut(engine, loops), loops);
  const std::vector<PlanarSegment> sides = SidesOf(faces);
  const std::vector<PlanarSegment> borders = WithoutShared(sides);
  if (borders.size() == sides.size()) return faces;
  return FacesInside(engine, engine.MakeLines(borders), borders);
}

}  // namespace

LoopGroups GroupLoops(std::span<const PlanarRing> loops) {
  std::vector<PlanarRing> rings;
  std::copy_if(loops.begin(), loops.end(), std::back_inserter(rings),
               [](const PlanarRing& loop) { return loop.size() >= 3 && IsFinite(loop) && HasArea(loop); });
  const std::vector<PlanarSegment> segments = SegmentsOf(rings);
  const LoopContacts contacts = FindContacts(segments);
  if (segments.empty() || contacts.Kind == LoopContactKinds::TooMany) return {{}, contacts.Crossings};
  const PlanarEngine engine;
  if (contacts.Kind == LoopContactKinds::None) return {FacesInside(engine, engine.MakeLines(rings), segments)};
  return {AlternatingFaces(engine, segments), contacts.Crossings};
}

}  // namespace qelvrml
