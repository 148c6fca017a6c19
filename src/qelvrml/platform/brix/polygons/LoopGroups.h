#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

namespace qelvrml {

/// Pairs of segments that cross, touch or lie on each other, in all loops together: half a second of work. No outline
/// drawn by hand comes near it.
inline constexpr std::size_t MaximumCrossings = 8'192;

struct LoopGroups {
  std::vector<PlanarPolygon> Polygons;
  std::size_t Crossings = 0;  ///< that were found; the work rises with them
};

/// Groups loops into outlines with their holes: what lies inside an odd number of loops is filled, by the even-odd rule
/// within each loop too. So loops at even nesting depth are outlines, those directly inside them their holes, and where
/// loops cross, the areas between them alternate. The coordinates must be values of float, and so are those of the
/// points where loops cross. A loop may repeat its first point at the end. Loops without area are dropped. No polygons
/// beyond MaximumCrossings.
LoopGroups GroupLoops(std::span<const PlanarRing> loops);

}  // namespace qelvrml
