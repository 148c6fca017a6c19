#pragma once

#include <cstddef>
#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarSweep.h"

namespace qelvrml {

/// Follows the edges with the interior on the left. At a point with several corners of the interior the way goes on
/// within the same corner.
class RingTracer : public SweepVisitor {
public:
  explicit RingTracer(std::size_t edges) : Edges(edges) {}

  void Visit(const SweepVertex& vertex, std::span<const SweepEdge> edges) override;
  /// To be called once, when the sweep has shown everything.
  std::vector<PlanarPolygon> TakePolygons();

private:
  static constexpr std::size_t None = static_cast<std::size_t>(-1);

  struct Edge {
    bool Outwards = false;  // goes from left to right
    unsigned Next = NoEdge;
    unsigned Below = NoEdge;  // at its left end
    std::size_t Origin = 0;   // where it comes from, by the order of the points
    PlanarPoint Place = {};   // of its origin
    std::size_t Ring = None;
  };

  void SetOrigin(unsigned edge, const PlanarPoint& place);
  void Follow(unsigned first);
  void CloseRing(std::vector<unsigned>& way, std::size_t begin);
  std::vector<PlanarPolygon> Nest();

  std::vector<Edge> Edges;
  std::vector<unsigned> Order;  // from left to right, and from below to above at a point
  std::vector<unsigned> Round;
  std::size_t Points = 0;
  std::vector<std::size_t> OnWay;  // the place of each point on the way at hand
  std::vector<PlanarRing> Rings;
};

}  // namespace qelvrml
