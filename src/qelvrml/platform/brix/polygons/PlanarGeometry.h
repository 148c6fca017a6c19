#pragma once

#include <array>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/brixArrays.h"

namespace qelvrml {

using PlanarPoint = std::array<double, 2>;
/// A closed line; the last point isn't the first one again.
using PlanarRing = std::vector<PlanarPoint>;

/// The points seen along the Z axis.
PlanarRing ToRing(const brixFloatPointArray& points);

/// An outline with the holes directly inside it.
struct PlanarPolygon {
  PlanarRing Outline;
  std::vector<PlanarRing> Holes;
};

/// Groups loops into outlines with their holes: those at even nesting depth are outlines, those directly inside them
/// their holes. Loops without area are dropped; loops that cross themselves or each other are made valid first. A loop
/// may repeat its first point at the end.
std::vector<PlanarPolygon> GroupLoops(std::span<const PlanarRing> loops);

/// Triangulates an outline with holes. Three indices for each triangle, counter-clockwise, into the points of the
/// outline and the holes laid end to end. Empty when there is no triangulation.
std::vector<unsigned> TriangulatePolygon(const PlanarPolygon& polygon);

}  // namespace qelvrml
