#include "qelvrml/platform/brix/polygons/LoopGroups.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "qelvrml/platform/brix/polygons/PlanarSweep.h"
#include "qelvrml/platform/brix/polygons/RingTracer.h"
#include "qelvrml/platform/brix/polygons/SnapRounding.h"

namespace qelvrml {
namespace {

// Each about a nanosecond.
constexpr std::uint64_t StepsOfASegment = 1'000;
constexpr std::uint64_t StepsOfACut = 2'000;
constexpr std::uint64_t StepsOfALook = 10;

// Whether the points don't all lie on one line.
bool HasArea(const PlanarRing& ring) {
  const PlanarPoint& origin = ring.front();
  const auto other = std::find_if(ring.begin(), ring.end(), [&origin](const PlanarPoint& p) { return p != origin; });
  if (other == ring.end()) return false;
  return std::any_of(other, ring.end(), [&](const PlanarPoint& p) { return SideOf(origin, *other, p) != 0; });
}

// Those that have a length.
std::vector<PlanarSegment> SegmentsOf(std::span<const PlanarRing> loops) {
  std::vector<PlanarSegment> segments;
  for (const PlanarRing& loop : loops) {
    for (std::size_t i = 0; i < loop.size(); ++i) {
      const PlanarPoint& next = loop[(i + 1) % loop.size()];
      if (loop[i] != next) segments.push_back({loop[i], next});
    }
  }
  return segments;
}

// The distance between neighbouring floats at the largest coordinate: a float holds every multiple in that range.
double FloatStep(std::span<const PlanarSegment> segments) {
  double largest = std::numeric_limits<float>::min();
  for (const auto& [a, b] : segments) largest = std::max({largest, std::fabs(a[0]), std::fabs(a[1])});
  return std::ldexp(1.0, std::ilogb(largest) + 1 - std::numeric_limits<float>::digits);
}

}  // namespace

LoopGroups GroupLoops(std::span<const PlanarRing> loops) {
  std::vector<PlanarRing> rings;
  std::copy_if(loops.begin(), loops.end(), std::back_inserter(rings),
               [](const PlanarRing& loop) { return loop.size() >= 3 && IsFinite(loop) && HasArea(loop); });
  std::vector<PlanarSegment> segments = SegmentsOf(rings);
  const double grid = FloatStep(segments);
  const CutAllowance allowed = {2 * MaximumCrossings, MaximumLooks + LooksPerSegment * segments.size()};
  CutAllowance left = allowed;
  LoopGroups groups;
  for (int round = 0; round < MaximumRounds && !segments.empty(); ++round) {
    RingTracer tracer(segments.size());
    if (Sweep(segments, tracer)) {
      groups.Polygons = tracer.TakePolygons();
      break;
    }
    groups.Steps += StepsOfASegment * segments.size();
    segments = CutOnGrid(segments, grid, left);
  }
  groups.Steps += StepsOfACut * (allowed.Cuts - left.Cuts) + StepsOfALook * (allowed.Looks - left.Looks);
  return groups;
}

}  // namespace qelvrml
