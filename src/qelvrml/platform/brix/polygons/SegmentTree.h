#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

namespace qelvrml {

struct PlanarBox {
  PlanarPoint Low = {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  PlanarPoint High = {-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

  void Add(const PlanarBox& other) {
    for (const std::size_t axis : {0U, 1U}) {
      Low[axis] = std::min(Low[axis], other.Low[axis]);
      High[axis] = std::max(High[axis], other.High[axis]);
    }
  }
};

/// Segments that are found by place, a point by a segment from it to itself.
class SegmentTree {
public:
  /// All visits together may look at so many segments and boxes.
  SegmentTree(std::span<const PlanarSegment> segments, std::uint64_t allowedLooks);

  std::span<const PlanarSegment> All() const { return Segments; }
  std::uint64_t GetLooks() const { return Looks; }

  /// Visits the segments from the index `first` on whose boxes come as near as `distance` along either axis to
  /// `segment`, until the visitor gives false. False if it did, or if all visits together have looked at more
  /// than allowed.
  template <typename Visitor>
  bool VisitNear(const PlanarSegment& segment, double distance, std::size_t first, const Visitor& visitor) {
    return VisitNode({1, 0, Nodes.size() / 2 * LeafSize}, Reach(segment, distance), first, visitor);
  }

private:
  static constexpr std::size_t LeafSize = 4;
  struct Node {
    std::size_t Index;
    std::size_t Begin;
    std::size_t Size;
  };

  /// What lies near a segment: a box, and a strip along the segment within that.
  class Reach {
  public:
    Reach(const PlanarSegment& segment, double distance);
    bool Meets(const PlanarBox& box) const {
      if (Box.Low[0] > box.High[0] || box.Low[0] > Box.High[0] || Box.Low[1] > box.High[1] || box.Low[1] > Box.High[1])
        return false;
      const double x = Normal[0] * ((box.Low[0] + box.High[0]) / 2.0 - From[0]);
      const double y = Normal[1] * ((box.Low[1] + box.High[1]) / 2.0 - From[1]);
      const double width = std::fabs(Normal[0]) * (box.High[0] - box.Low[0]);
      const double height = std::fabs(Normal[1]) * (box.High[1] - box.Low[1]);
      return std::fabs(x + y) <= (width + height) / 2.0 + Width;
    }

  private:
    PlanarBox Box;
    PlanarPoint From;
    PlanarPoint Normal;
    double Width;
  };

  template <typename Visitor>
  bool VisitNode(const Node& node, const Reach& reach, std::size_t first, const Visitor& visitor) {
    if (++Looks > AllowedLooks) return false;
    if (node.Begin + node.Size <= first || !reach.Meets(Nodes[node.Index])) return true;
    const std::size_t half = node.Size / 2;
    if (node.Size > LeafSize) {
      return VisitNode({2 * node.Index, node.Begin, half}, reach, first, visitor) &&
             VisitNode({2 * node.Index + 1, node.Begin + half, half}, reach, first, visitor);
    }
    const std::size_t end = std::min(node.Begin + node.Size, Segments.size());
    for (std::size_t i = std::max(node.Begin, first); i < end; ++i) {
      ++Looks;
      if (reach.Meets(BoxOf(Segments[i])) && !visitor(Segments[i])) return false;
    }
    return true;
  }

  static PlanarBox BoxOf(const PlanarSegment& segment) {
    PlanarBox box{segment.A, segment.A};
    box.Add({segment.B, segment.B});
    return box;
  }
  /// The order of points along a Z-order curve, in which neighbours are mostly near each other.
  static std::vector<std::size_t> OrderByPlace(std::span<const PlanarPoint> points, const PlanarBox& box);

  std::vector<PlanarSegment> Segments;
  std::vector<PlanarBox> Nodes;  // a binary heap, its root at 1
  std::uint64_t Looks = 0;
  std::uint64_t AllowedLooks;
};

}  // namespace qelvrml
