#pragma once

#include <array>
#include <vector>

#include "qelvrml/platform/brix/brixArrays.h"

namespace qelvrml {

using PlanarPoint = std::array<double, 2>;
/// A closed line; the last point isn't the first one again.
using PlanarRing = std::vector<PlanarPoint>;

/// The points seen along the Z axis.
PlanarRing ToRing(const brixFloatPointArray& points);

bool IsFinite(const PlanarRing& ring);

/// An outline with the holes directly inside it.
struct PlanarPolygon {
  PlanarRing Outline;
  std::vector<PlanarRing> Holes;
};

/// Triangulates an outline with holes. Three indices for each triangle, counter-clockwise, into the points of the
/// outline and the holes laid end to end. Empty when there is no triangulation.
std::vector<unsigned> TriangulatePolygon(const PlanarPolygon& polygon);

}  // namespace qelvrml
