#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

namespace qelvrml {

/// What cutting segments may take, and what is left of it.
struct CutAllowance {
  std::size_t Cuts;     ///< a crossing takes two
  std::uint64_t Looks;  ///< at segments and boxes, to find what meets
};

/// Brings segments to a grid, cuts them where they meet and drops pairs of pieces that lie on each other. Each piece
/// goes between points of the grid, and what a segment comes nearer to than half a step of the grid lies on it. Now and
/// then a piece moves over a point that was beside its segment: then pieces still meet, and another call cuts those.
/// Empty if it takes more than allowed. `grid` is such that the coordinates are below 2^24 steps.
std::vector<PlanarSegment> CutOnGrid(std::span<const PlanarSegment> segments, double grid, CutAllowance& allowance);

}  // namespace qelvrml
