#include "qelvrml/platform/brix/polygons/RingTracer.h"

#include <utility>

namespace qelvrml {

void RingTracer::Visit(const SweepVertex& vertex, std::span<const SweepEdge> edges) {
  const std::span<const unsigned> ended = vertex.Ended;
  const std::span<const unsigned> started = vertex.Started;
  unsigned below = vertex.Below;
  for (const unsigned edge : started) {
    Order.push_back(edge);
    Edges[edge].Below = std::exchange(below, edge);
    Edges[edge].Outwards = edges[edge].InteriorAbove;
    if (Edges[edge].Outwards) SetOrigin(edge, vertex.Place);
  }
  for (const unsigned edge : ended) {
    if (!Edges[edge].Outwards) SetOrigin(edge, vertex.Place);
  }
  // Counter-clockwise round the point: those started from below, then those ended from above.
  Round.assign(started.begin(), started.end());
  Round.insert(Round.end(), ended.rbegin(), ended.rend());
  for (std::size_t i = 0; i < Round.size(); ++i) {
    const bool leaves = Edges[Round[i]].Outwards == (i < started.size());
    if (leaves) Edges[Round[(i + 1) % Round.size()]].Next = Round[i];
  }
  ++Points;
}

std::vector<PlanarPolygon> RingTracer::TakePolygons() {
  OnWay.assign(Points, None);
  for (const unsigned edge : Order) {
    if (Edges[edge].Ring == None) Follow(edge);
  }
  return Nest();
}

void RingTracer::SetOrigin(unsigned edge, const PlanarPoint& place) {
  Edges[edge].Origin = Points;
  Edges[edge].Place = place;
}

// A way that comes to a point again has closed a ring there.
void RingTracer::Follow(unsigned first) {
  std::vector<unsigned> way;
  unsigned edge = first;
  do {
    const std::size_t origin = Edges[edge].Origin;
    if (OnWay[origin] != None) CloseRing(way, OnWay[origin]);
    OnWay[origin] = way.size();
    way.push_back(edge);
    edge = Edges[edge].Next;
  } while (edge != first);
  CloseRing(way, 0);
}

void RingTracer::CloseRing(std::vector<unsigned>& way, std::size_t begin) {
  PlanarRing ring;
  for (std::size_t i = begin; i < way.size(); ++i) {
    Edge& edge = Edges[way[i]];
    edge.Ring = Rings.size();
    OnWay[edge.Origin] = None;
    ring.push_back(edge.Place);
  }
  way.resize(begin);
  Rings.push_back(std::move(ring));
}

// The lowest edge at the leftmost point of a ring comes first of all of its edges: an outline has its interior above
// that one, and a hole lies in the outline of the ring that is next below.
std::vector<PlanarPolygon> RingTracer::Nest() {
  std::vector<PlanarPolygon> polygons;
  std::vector<std::size_t> polygonOf(Rings.size(), None);
  for (const unsigned order : Order) {
    const Edge& edge = Edges[order];
    if (polygonOf[edge.Ring] != None) continue;
    if (edge.Outwards) {
      polygonOf[edge.Ring] = polygons.size();
      polygons.push_back({std::move(Rings[edge.Ring]), {}});
    } else {
      polygonOf[edge.Ring] = polygonOf[Edges[edge.Below].Ring];
      polygons[polygonOf[edge.Ring]].Holes.push_back(std::move(Rings[edge.Ring]));
    }
  }
  return polygons;
}

}  // namespace qelvrml
