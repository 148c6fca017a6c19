// Triangles by Hertel and Mehlhorn's sweep. Each stretch of the interior on the sweep line has a chain of points on its
// left, from the start of the edge below it to the start of the edge above it:
//
//          o----         no triangle of three neighbours lies right of the chain, so that a point on the line sees
//         /              the last point of the chain that the line met, and from there on some to either side
//   o----o
//    \                   a point that ends an edge makes triangles with what it sees and becomes an end of the chain
//     o------

#include "qelvrml/platform/brix/polygons/PolygonTriangles.h"

#include <algorithm>
#include <iterator>

#include "qelvrml/platform/brix/polygons/PlanarSweep.h"

namespace qelvrml {
namespace {

class Triangulator : public SweepVisitor {
public:
  explicit Triangulator(const PlanarPolygon& polygon) {
    AddRing(polygon.Outline);
    for (const PlanarRing& hole : polygon.Holes) AddRing(hole);
    Stretches.resize(Segments.size());
  }

  std::span<const PlanarSegment> GetSegments() const { return Segments; }
  std::vector<unsigned> TakeTriangles() { return std::move(Triangles); }

  void Visit(const SweepVertex& vertex, std::span<const SweepEdge> edges) override {
    const unsigned point = PointOf(vertex);
    const bool insideBelow = vertex.Below != NoEdge && edges[vertex.Below].InteriorAbove;
    Stretch above;
    if (!vertex.Ended.empty()) {
      above = EndAt(point, vertex, edges);
    } else if (insideBelow) {
      above = Split(Stretches[vertex.Below], point);
    }
    if (vertex.Started.empty()) {
      if (insideBelow) Join(Stretches[vertex.Below], above);
      return;
    }
    for (const unsigned edge : vertex.Started) Stretches[edge] = Single(point);
    if (edges[vertex.Started.back()].InteriorAbove) Stretches[vertex.Started.back()] = above;
  }

private:
  static constexpr unsigned None = ~0U;
  struct Link {
    unsigned Point;
    unsigned Down;
    unsigned Up;
  };
  // The chain left of a stretch of the interior, by its links.
  struct Stretch {
    unsigned Low = None;
    unsigned High = None;
    unsigned Last = None;  // the one that the line met last
  };

  void AddRing(const PlanarRing& ring) {
    const auto first = static_cast<unsigned>(Points.size());
    const auto size = static_cast<unsigned>(ring.size());
    Points.insert(Points.end(), ring.begin(), ring.end());
    for (unsigned i = 0; i < size; ++i) {
      const unsigned a = first + i;
      const unsigned b = first + (i + 1) % size;
      if (Points[a] == Points[b]) continue;
      Segments.push_back({Points[a], Points[b]});
      Ends.push_back(Points[a] < Points[b] ? std::pair(a, b) : std::pair(b, a));
    }
  }

  unsigned PointOf(const SweepVertex& vertex) const {
    return vertex.Ended.empty() ? Ends[vertex.Started.front()].first : Ends[vertex.Ended.front()].second;
  }

  // What lies above the point, if that is inside.
  Stretch EndAt(unsigned point, const SweepVertex& vertex, std::span<const SweepEdge> edges) {
    if (!edges[vertex.Ended.front()].InteriorAbove) PushHigh(Stretches[vertex.Below], point);
    for (std::size_t i = 0; i + 1 < vertex.Ended.size(); ++i) {
      if (edges[vertex.Ended[i]].InteriorAbove) Close(Stretches[vertex.Ended[i]], point);
    }
    Stretch above;
    if (edges[vertex.Ended.back()].InteriorAbove) {
      above = Stretches[vertex.Ended.back()];
      PushLow(above, point);
    }
    return above;
  }

  unsigned NewLink(unsigned point) {
    Links.push_back({point, None, None});
    return static_cast<unsigned>(Links.size() - 1);
  }

  Stretch Single(unsigned point) {
    const unsigned link = NewLink(point);
    return {link, link, link};
  }

  void Connect(unsigned low, unsigned high) {
    Links[low].Up = high;
    Links[high].Down = low;
  }

  // Whether the point sees the side of two neighbouring links.
  bool Sees(unsigned point, unsigned low, unsigned high) const {
    return SideOf(Points[Links[low].Point], Points[point], Points[Links[high].Point]) > 0;
  }

  void AddTriangle(unsigned point, unsigned low, unsigned high) {
    Triangles.insert(Triangles.end(), {Links[low].Point, point, Links[high].Point});
  }

  void PushLow(Stretch& stretch, unsigned point) {
    unsigned low = stretch.Low;
    for (; low != stretch.High && Sees(point, low, Links[low].Up); low = Links[low].Up)
      AddTriangle(point, low, Links[low].Up);
    const unsigned link = NewLink(point);
    Connect(link, low);
    stretch.Low = stretch.Last = link;
  }

  void PushHigh(Stretch& stretch, unsigned point) {
    unsigned high = stretch.High;
    for (; high != stretch.Low && Sees(point, Links[high].Down, high); high = Links[high].Down)
      AddTriangle(point, Links[high].Down, high);
    const unsigned link = NewLink(point);
    Connect(high, link);
    stretch.High = stretch.Last = link;
  }

  void Close(const Stretch& stretch, unsigned point) {
    for (unsigned low = stretch.Low; low != stretch.High; low = Links[low].Up) AddTriangle(point, low, Links[low].Up);
  }

  // At the last point of the chain, which the new point sees. Gives the upper part.
  Stretch Split(Stretch& stretch, unsigned point) {
    const unsigned copy = NewLink(Links[stretch.Last].Point);
    Stretch upper = {copy, copy, copy};
    if (stretch.Last != stretch.High) {
      Connect(copy, Links[stretch.Last].Up);
      upper.High = stretch.High;
    }
    stretch.High = stretch.Last;
    PushHigh(stretch, point);
    PushLow(upper, point);
    return upper;
  }

  // Both end in the same point.
  void Join(Stretch& lower, const Stretch& upper) {
    lower.Last = lower.High;
    if (upper.Low == upper.High) return;
    Connect(lower.High, Links[upper.Low].Up);
    lower.High = upper.High;
  }

  std::vector<PlanarPoint> Points;
  std::vector<PlanarSegment> Segments;
  std::vector<std::pair<unsigned, unsigned>> Ends;  // of each segment, its points from left to right
  std::vector<Stretch> Stretches;                   // above each segment
  std::vector<Link> Links;
  std::vector<unsigned> Triangles;
};

}  // namespace

std::vector<unsigned> TriangulatePolygon(const PlanarPolygon& polygon) {
  if (!IsFinite(polygon.Outline) || !std::all_of(polygon.Holes.begin(), polygon.Holes.end(), IsFinite)) return {};
  Triangulator triangulator(polygon);
  if (!Sweep(triangulator.GetSegments(), triangulator)) return {};
  return triangulator.TakeTriangles();
}

}  // namespace qelvrml
