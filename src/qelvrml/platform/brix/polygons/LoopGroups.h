#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

namespace qelvrml {

/// Of segments, in all loops together: half a second of work, and a star of 500 points. No outline drawn by hand comes
/// near it.
inline constexpr std::size_t MaximumCrossings = 131'072;
/// At segments and boxes, to find where segments meet, beside LooksPerSegment. Where long slanted lines lie side by
/// side their boxes overlap by the million.
inline constexpr std::uint64_t MaximumLooks = 16'777'216;
/// Several times what short segments need.
inline constexpr std::uint64_t LooksPerSegment = 256;
/// Of cutting. Two are enough nearly always.
inline constexpr int MaximumRounds = 8;

struct LoopGroups {
  std::vector<PlanarPolygon> Polygons;
  std::uint64_t Steps = 0;  ///< that cutting took, each about a nanosecond
};

/// Groups loops into outlines with their holes: what lies inside an odd number of loops is filled, by the even-odd rule
/// within each loop too. So loops at even nesting depth are outlines, those directly inside them their holes, and where
/// loops cross, the areas between them alternate. The coordinates must be values of float, and so are those of the
/// points where loops cross. A loop may repeat its first point at the end. Loops without area are dropped. No polygons
/// beyond the limits above. Takes the time of sorting segments and crossings.
LoopGroups GroupLoops(std::span<const PlanarRing> loops);

}  // namespace qelvrml
