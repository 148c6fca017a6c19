#pragma once

#include <span>
#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"
#include "qelvrml/platform/brix/polygons/SegmentTree.h"

namespace qelvrml {

enum class LoopContactKinds {
  None,     ///< the loops meet nowhere but where a segment joins the next one
  Some,     ///< there are crossings, points used twice or lines on each other
  TooMany,  ///< more than MaximumCrossings, or too many steps to find out
};

struct LoopContacts {
  LoopContactKinds Kind = LoopContactKinds::None;
  std::size_t Crossings = 0;  ///< pairs of segments that cross or touch, as far as they were counted
};

/// How loops meet, all of which have an area.
LoopContacts FindContacts(std::span<const PlanarSegment> loops);

/// For each point whether it lies inside an odd number of loops, by the even-odd rule within each loop too. No point
/// may lie on a loop. Empty if it takes too many steps to find out.
std::vector<bool> FindInside(std::span<const PlanarSegment> loops, std::span<const PlanarPoint> points);

}  // namespace qelvrml
