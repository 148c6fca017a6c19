#pragma once

#include <span>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

namespace qelvrml {

/// A segment as the sweep goes along it: A lies left of B, or below B on an upright line.
struct SweepEdge : PlanarSegment {
  bool InteriorAbove = false;  ///< whether an even number of edges lies below
};

inline constexpr unsigned NoEdge = ~0U;

/// A point where edges end and start, by their indices from below to above.
struct SweepVertex {
  PlanarPoint Place;
  std::span<const unsigned> Ended;
  std::span<const unsigned> Started;
  unsigned Below;  ///< the edge next below the point, or NoEdge
};

class SweepVisitor {
public:
  SweepVisitor() = default;
  SweepVisitor(const SweepVisitor&) = delete;
  SweepVisitor& operator=(const SweepVisitor&) = delete;
  virtual ~SweepVisitor() = default;
  virtual void Visit(const SweepVertex& vertex, std::span<const SweepEdge> edges) = 0;
};

/// Goes over segments with an upright line from left to right and shows their ends to the visitor; an edge has the
/// index of its segment. The segments have a length. False as soon as two of them turn out to have anything in common
/// but ends. Takes the time of sorting them, however they lie.
bool Sweep(std::span<const PlanarSegment> segments, SweepVisitor& visitor);

}  // namespace qelvrml
