// Snap rounding (Hobby; Guibas and Marimont): cells of the grid that hold an end or a crossing are hot, and a segment
// goes through the middles of all hot cells that it touches.
//
//   a---+-.-----b   the segment from a to b touches the cell of the crossing + and that of the end c,
//       |  c---d    and becomes a to +, + to c, c to b
//
// Of its sides a cell has the left and the lower one, so that no line goes through two cells at one point.

#include "qelvrml/platform/brix/polygons/SnapRounding.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "qelvrml/platform/brix/polygons/SegmentTree.h"

namespace qelvrml {
namespace {

PlanarPoint RoundTo(double grid, const PlanarPoint& p) {
  return {std::floor(p[0] / grid + 0.5) * grid, std::floor(p[1] / grid + 0.5) * grid};
}

std::vector<PlanarSegment> RoundTo(double grid, std::span<const PlanarSegment> segments) {
  std::vector<PlanarSegment> rounded;
  rounded.reserve(segments.size());
  for (const auto& [a, b] : segments) {
    const PlanarSegment segment = {RoundTo(grid, a), RoundTo(grid, b)};
    if (segment.A != segment.B) rounded.push_back(segment);
  }
  return rounded;
}

// The differences of values on a grid of 2^25 steps, and the products of those, are exact.
double CrossProductOf(const PlanarPoint& from, const PlanarPoint& a, const PlanarPoint& b) {
  return (a[0] - from[0]) * (b[1] - from[1]) - (a[1] - from[1]) * (b[0] - from[0]);
}

/// Where segments on a grid cross.
class Crossings {
public:
  Crossings(std::span<const PlanarSegment> segments, double grid, CutAllowance& allowance)
      : Tree(segments, allowance.Looks), Grid(grid), Allowance(allowance) {}

  /// Appends the hot points. False if there are more than allowed.
  bool FindAll(std::vector<PlanarSegment>& hot) {
    const std::span<const PlanarSegment> segments = Tree.All();
    const std::size_t allowed = hot.size() + Allowance.Cuts / 2;
    bool complete = true;
    for (std::size_t i = 0; i < segments.size() && complete; ++i) {
      complete = Tree.VisitNear(segments[i], 0.0, i + 1, [&](const PlanarSegment& other) {
        AddCrossing(segments[i], other, hot);
        return hot.size() <= allowed;
      });
    }
    Allowance.Looks -= std::min(Allowance.Looks, Tree.GetLooks());
    return complete;
  }

private:
  // On the border of cells, where rounding may err, all of them become hot.
  void AddCrossing(const PlanarSegment& s, const PlanarSegment& t, std::vector<PlanarSegment>& hot) const {
    const double from = CrossProductOf(t.A, t.B, s.A);
    const double to = CrossProductOf(t.A, t.B, s.B);
    const double sides = CrossProductOf(s.A, s.B, t.A) * CrossProductOf(s.A, s.B, t.B);
    if (from * to >= 0.0 || sides >= 0.0) return;
    const double share = from / (from - to);
    const double slack = 1e-6 * Grid;
    const PlanarPoint place = {s.A[0] + share * (s.B[0] - s.A[0]), s.A[1] + share * (s.B[1] - s.A[1])};
    const PlanarPoint low = RoundTo(Grid, {place[0] - slack, place[1] - slack});
    const PlanarPoint high = RoundTo(Grid, {place[0] + slack, place[1] + slack});
    hot.push_back({low, low});
    if (low == high) return;
    for (const PlanarPoint& cell : {high, PlanarPoint{low[0], high[1]}, PlanarPoint{high[0], low[1]}})
      hot.push_back({cell, cell});
  }

  SegmentTree Tree;
  double Grid;
  CutAllowance& Allowance;
};

// Whether a segment between points of the grid touches the cell around a point of the grid within its box.
bool Touches(const PlanarSegment& segment, const PlanarPoint& cell, double grid) {
  const PlanarPoint way = {segment.B[0] - segment.A[0], segment.B[1] - segment.A[1]};
  const double side = CrossProductOf(segment.A, segment.B, cell);
  const double reach = grid / 2.0 * (std::fabs(way[0]) + std::fabs(way[1]));
  const bool touchesLowerLeftCorner = way[0] * way[1] < 0.0 && side * way[0] > 0.0;
  return std::fabs(side) < reach || (std::fabs(side) == reach && touchesLowerLeftCorner);
}

// From one end of each segment to the other through the hot points. False if it takes more than allowed.
bool GoThrough(std::span<const PlanarSegment> hot, std::span<const PlanarSegment> segments, double grid,
               CutAllowance& allowance, std::vector<PlanarSegment>& pieces) {
  SegmentTree tree(hot, allowance.Looks);
  std::vector<std::pair<double, PlanarPoint>> stops;
  bool complete = true;
  for (const PlanarSegment& segment : segments) {
    const PlanarPoint way = {segment.B[0] - segment.A[0], segment.B[1] - segment.A[1]};
    stops.clear();
    complete = tree.VisitNear(segment, grid / 2.0, 0, [&](const PlanarSegment& point) {
      if (Touches(segment, point.A, grid)) stops.emplace_back(way[0] * point.A[0] + way[1] * point.A[1], point.A);
      return stops.size() <= allowance.Cuts + 2;
    });
    if (!complete) break;
    std::sort(stops.begin(), stops.end());
    for (std::size_t i = 1; i < stops.size(); ++i) pieces.push_back({stops[i - 1].second, stops[i].second});
    allowance.Cuts -= stops.size() - 2;
  }
  allowance.Looks -= std::min(allowance.Looks, tree.GetLooks());
  return complete;
}

bool Before(const PlanarSegment& s, const PlanarSegment& t) { return std::tie(s.A, s.B) < std::tie(t.A, t.B); }

// Of pieces that lie on each other, two and two don't bound anything.
void DropPairs(std::vector<PlanarSegment>& pieces) {
  for (PlanarSegment& piece : pieces) {
    if (piece.B < piece.A) std::swap(piece.A, piece.B);
  }
  std::sort(pieces.begin(), pieces.end(), Before);
  std::size_t kept = 0;
  for (const PlanarSegment& piece : pieces) {
    if (kept > 0 && !Before(pieces[kept - 1], piece)) {
      --kept;
    } else {
      pieces[kept++] = piece;
    }
  }
  pieces.resize(kept);
}

}  // namespace

std::vector<PlanarSegment> CutOnGrid(std::span<const PlanarSegment> segments, double grid, CutAllowance& allowance) {
  const std::vector<PlanarSegment> rounded = RoundTo(grid, segments);
  std::vector<PlanarSegment> hot;
  std::vector<PlanarSegment> pieces;
  if (!Crossings(rounded, grid, allowance).FindAll(hot)) return pieces;
  for (const auto& [a, b] : rounded) hot.insert(hot.end(), {{a, a}, {b, b}});
  std::sort(hot.begin(), hot.end(), Before);
  hot.erase(std::unique(hot.begin(), hot.end(), [](const auto& s, const auto& t) { return s.A == t.A; }), hot.end());
  if (!GoThrough(hot, rounded, grid, allowance, pieces)) return {};
  DropPairs(pieces);
  return pieces;
}

}  // namespace qelvrml
