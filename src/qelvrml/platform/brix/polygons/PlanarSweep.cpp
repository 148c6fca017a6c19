// Shamos and Hoey's sweep: the edges on the line are kept from below to above, and only those that become neighbours
// are looked at.

#include "qelvrml/platform/brix/polygons/PlanarSweep.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

namespace qelvrml {
namespace {

bool Cross(const PlanarSegment& s, const PlanarSegment& t) {
  return SideOf(s.A, s.B, t.A) * SideOf(s.A, s.B, t.B) < 0 && SideOf(t.A, t.B, s.A) * SideOf(t.A, t.B, s.B) < 0;
}

class PlanarSweep {
public:
  explicit PlanarSweep(std::span<const PlanarSegment> segments) {
    Edges.reserve(segments.size());
    Ends.reserve(2 * segments.size());
    for (const auto& [a, b] : segments) {
      const auto edge = static_cast<unsigned>(Edges.size());
      Edges.push_back({{std::min(a, b), std::max(a, b)}});
      Ends.emplace_back(a, edge);
      Ends.emplace_back(b, edge);
    }
    std::sort(Ends.begin(), Ends.end());
    Places.assign(Edges.size(), Active.end());
  }
  PlanarSweep(const PlanarSweep&) = delete;
  PlanarSweep& operator=(const PlanarSweep&) = delete;
  ~PlanarSweep() = default;

  bool Run(SweepVisitor& visitor) {
    for (auto end = Ends.begin(); end != Ends.end();) {
      const PlanarPoint place = end->first;
      Started.clear();
      for (; end != Ends.end() && end->first == place; ++end) {
        if (Edges[end->second].A == place) Started.push_back(end->second);
      }
      const auto above = EndEdges(place);
      if (above != Active.end() && SideOf(Edges[*above].A, Edges[*above].B, place) == 0) return false;
      if (!StartEdges(above) || NeighboursCross(above)) return false;
      const auto lowest = LowestOf(above);
      visitor.Visit({place, Ended, Started, lowest == Active.begin() ? NoEdge : *std::prev(lowest)}, Edges);
    }
    return true;
  }

private:
  // Orders edges that the line meets from below to above.
  struct Order {
    using is_transparent = void;
    const std::vector<SweepEdge>* Edges;
    bool operator()(unsigned left, unsigned right) const {
      const SweepEdge& e = (*Edges)[left];
      const SweepEdge& f = (*Edges)[right];
      if (f.A < e.A) return SideOf(f.A, f.B, e.A) < 0;
      const int side = e.A == f.A ? 0 : SideOf(e.A, e.B, f.A);
      return side != 0 ? side > 0 : SideOf(e.A, e.B, f.B) > 0;
    }
    bool operator()(unsigned edge, const PlanarPoint& point) const {
      return SideOf((*Edges)[edge].A, (*Edges)[edge].B, point) > 0;
    }
  };
  using ActiveEdges = std::multiset<unsigned, Order>;

  // Gives the edge above the point, or through it.
  ActiveEdges::iterator EndEdges(const PlanarPoint& place) {
    Ended.clear();
    auto at = Active.lower_bound(place);
    while (at != Active.end() && Edges[*at].B == place) {
      Ended.push_back(*at);
      at = Active.erase(at);
    }
    return at;
  }

  // False if two of them lie on each other.
  bool StartEdges(ActiveEdges::iterator above) {
    std::sort(Started.begin(), Started.end(), [this](unsigned left, unsigned right) {
      return SideOf(Edges[left].A, Edges[left].B, Edges[right].B) > 0;
    });
    for (std::size_t i = 0; i < Started.size(); ++i) {
      SweepEdge& edge = Edges[Started[i]];
      if (i > 0 && SideOf(edge.A, edge.B, Edges[Started[i - 1]].B) == 0) return false;
      const auto at = Active.emplace_hint(above, Started[i]);
      Places[Started[i]] = at;
      edge.InteriorAbove = at == Active.begin() || !Edges[*std::prev(at)].InteriorAbove;
    }
    return true;
  }

  ActiveEdges::iterator LowestOf(ActiveEdges::iterator above) const {
    return Started.empty() ? above : Places[Started.front()];
  }

  bool NeighboursCross(ActiveEdges::iterator above) const {
    const auto lowest = LowestOf(above);
    const bool crossBelow =
        lowest != Active.begin() && lowest != Active.end() && Cross(Edges[*std::prev(lowest)], Edges[*lowest]);
    return crossBelow || (!Started.empty() && above != Active.end() && Cross(Edges[Started.back()], Edges[*above]));
  }

  std::vector<SweepEdge> Edges;
  std::vector<std::pair<PlanarPoint, unsigned>> Ends;  // in the order in which the line meets them
  ActiveEdges Active{Order{&Edges}};
  std::vector<ActiveEdges::iterator> Places;  // of the active edges
  std::vector<unsigned> Ended;                // at the point at hand
  std::vector<unsigned> Started;
};

}  // namespace

bool Sweep(std::span<const PlanarSegment> segments, SweepVisitor& visitor) {
  PlanarSweep sweep(segments);
  return sweep.Run(visitor);
}

}  // namespace qelvrml
