#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

namespace qelvrml {

/// Segments and boxes that a tree looks at in all, beside StepsPerSegment. Long slanted lines side by side have
/// overlapping boxes by the million without a crossing, and at this bound the geometry library takes seconds for them.
inline constexpr std::uint64_t MaximumSteps = 16'777'216;
/// Several times what short segments need.
inline constexpr std::uint64_t StepsPerSegment = 256;

struct PlanarSegment {
  PlanarPoint A;
  PlanarPoint B;
};

/// The segments of loops that have a length.
std::vector<PlanarSegment> SegmentsOf(std::span<const PlanarRing> loops);

struct PlanarBox {
  PlanarPoint Low = {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  PlanarPoint High = {-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

  void Add(const PlanarBox& other) {
    for (const std::size_t axis : {0U, 1U}) {
      Low[axis] = std::min(Low[axis], other.Low[axis]);
      High[axis] = std::max(High[axis], other.High[axis]);
    }
  }
  bool Overlaps(const PlanarBox& other) const {
    return Low[0] <= other.High[0] && other.Low[0] <= High[0] && Low[1] <= other.High[1] && other.Low[1] <= High[1];
  }
};

PlanarBox BoxOf(const PlanarSegment& segment);

/// The indices of the points in an order in which neighbours are mostly near each other. The box holds about all
/// points.
std::vector<std::size_t> OrderByPlace(std::span<const PlanarPoint> points, const PlanarBox& box);

/// Segments that are found by place.
class SegmentTree {
public:
  explicit SegmentTree(std::span<const PlanarSegment> segments);

  const PlanarBox& GetBounds() const { return Bounds; }
  std::span<const PlanarSegment> All() const { return Segments; }

  /// Visits the segments from the index `first` on whose boxes overlap that of `segment`, until the visitor gives
  /// false. False if it did, or if all visits together have taken more steps than allowed.
  template <typename Visitor>
  bool VisitNear(const PlanarSegment& segment, std::size_t first, const Visitor& visitor) {
    AllowedSteps += StepsPerSegment;
    return VisitNode({1, 0, Nodes.size() / 2 * LeafSize}, BoxOf(segment), first, visitor);
  }

private:
  static constexpr std::size_t LeafSize = 8;
  struct Node {
    std::size_t Index;
    std::size_t Begin;
    std::size_t Size;
  };

  template <typename Visitor>
  bool VisitNode(const Node& node, const PlanarBox& box, std::size_t first, const Visitor& visitor) {
    if (++Steps > AllowedSteps) return false;
    if (node.Begin + node.Size <= first || !Nodes[node.Index].Overlaps(box)) return true;
    const std::size_t half = node.Size / 2;
    if (node.Size > LeafSize) {
      return VisitNode({2 * node.Index, node.Begin, half}, box, first, visitor) &&
             VisitNode({2 * node.Index + 1, node.Begin + half, half}, box, first, visitor);
    }
    const std::size_t end = std::min(node.Begin + node.Size, Segments.size());
    for (std::size_t i = std::max(node.Begin, first); i < end; ++i) {
      ++Steps;
      if (BoxOf(Segments[i]).Overlaps(box) && !visitor(Segments[i])) return false;
    }
    return true;
  }

  std::vector<PlanarSegment> Segments;
  std::vector<PlanarBox> Nodes;  // a binary heap, its root at 1
  PlanarBox Bounds;
  std::uint64_t Steps = 0;
  std::uint64_t AllowedSteps = MaximumSteps;
};

}  // namespace qelvrml
