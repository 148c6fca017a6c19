#pragma once

#include <array>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/brixArrays.h"

namespace qelvrml {

/// The coordinates are values of float wherever points are compared or sides are looked at.
using PlanarPoint = std::array<double, 2>;
/// A closed line; the last point isn't the first one again.
using PlanarRing = std::vector<PlanarPoint>;

struct PlanarSegment {
  PlanarPoint A;
  PlanarPoint B;
};

/// An outline with the holes directly inside it.
struct PlanarPolygon {
  PlanarRing Outline;
  std::vector<PlanarRing> Holes;
};

/// The points seen along the Z axis.
PlanarRing ToRing(const brixFloatPointArray& points);

bool IsFinite(const PlanarRing& ring);

/// 1 if the point lies left of the line from a to b, -1 right, 0 on it. Exact, so that no two answers contradict each
/// other.
int SideOf(const PlanarPoint& a, const PlanarPoint& b, const PlanarPoint& point);

}  // namespace qelvrml
