#include "qelvrml/platform/brix/polygons/SegmentTree.h"

#include <bit>
#include <utility>

namespace qelvrml {
namespace {

// The lower 16 bits, each followed by a zero.
std::uint32_t Spread(std::uint32_t bits) {
  bits = (bits | bits << 8U) & 0x00FF00FFU;
  bits = (bits | bits << 4U) & 0x0F0F0F0FU;
  bits = (bits | bits << 2U) & 0x33333333U;
  return (bits | bits << 1U) & 0x55555555U;
}

}  // namespace

SegmentTree::Reach::Reach(const PlanarSegment& segment, double distance)
    : Box(BoxOf(segment)),
      From(segment.A),
      Normal{segment.A[1] - segment.B[1], segment.B[0] - segment.A[0]},
      Width(distance * (std::fabs(Normal[0]) + std::fabs(Normal[1]))) {
  for (const std::size_t axis : {0U, 1U}) {
    Box.Low[axis] -= distance;
    Box.High[axis] += distance;
  }
}

std::vector<std::size_t> SegmentTree::OrderByPlace(std::span<const PlanarPoint> points, const PlanarBox& box) {
  std::vector<std::pair<std::uint32_t, std::size_t>> places;
  places.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    std::uint32_t place = 0;
    for (const std::size_t axis : {0U, 1U}) {
      const double size = box.High[axis] - box.Low[axis];
      const double cell = size > 0.0 ? (points[i][axis] - box.Low[axis]) / size * 65'535.0 : 0.0;
      place |= Spread(static_cast<std::uint32_t>(cell)) << axis;
    }
    places.emplace_back(place, i);
  }
  std::sort(places.begin(), places.end());
  std::vector<std::size_t> order(points.size());
  std::transform(places.begin(), places.end(), order.begin(), [](const auto& place) { return place.second; });
  return order;
}

SegmentTree::SegmentTree(std::span<const PlanarSegment> segments, std::uint64_t allowedLooks)
    : AllowedLooks(allowedLooks) {
  PlanarBox bounds;
  std::vector<PlanarPoint> middles;
  middles.reserve(segments.size());
  for (const auto& [a, b] : segments) {
    bounds.Add(BoxOf({a, b}));
    middles.push_back({(a[0] + b[0]) / 2.0, (a[1] + b[1]) / 2.0});
  }
  Segments.reserve(segments.size());
  for (const std::size_t i : OrderByPlace(middles, bounds)) Segments.push_back(segments[i]);

  const std::size_t leaves = std::bit_ceil(Segments.size() / LeafSize + 1);
  Nodes.resize(2 * leaves);
  for (std::size_t i = 0; i < Segments.size(); ++i) Nodes[leaves + i / LeafSize].Add(BoxOf(Segments[i]));
  for (std::size_t node = leaves - 1; node > 0; --node) {
    Nodes[node] = Nodes[2 * node];
    Nodes[node].Add(Nodes[2 * node + 1]);
  }
}

}  // namespace qelvrml
