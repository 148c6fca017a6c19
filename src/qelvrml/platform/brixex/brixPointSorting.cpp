// Clusters of coinciding points. Points lie in cells of a grid as wide as the tolerance: those in one cell coincide,
// those in neighbouring cells are compared.

#include "qelvrml/platform/brixex/brixPointSorting.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr double CellSize = brixFloatPoint::Tolerance;
// From here on neighbouring floats are further apart than the tolerance, and only equal ones coincide.
constexpr float CoarseMagnitude = 32.0F;
// Comparisons for each point. Cells so full that this doesn't suffice hold points that nothing tells apart in practice.
constexpr std::int64_t ComparisonsOfAPoint = 100;

using Cell = std::array<std::int64_t, 3>;

std::int64_t CellOf(float value) {
  if (std::fabs(value) < CoarseMagnitude) return static_cast<std::int64_t>(std::floor(value / CellSize));
  constexpr std::int64_t BehindFineCells = std::int64_t{1} << 40U;
  return BehindFineCells + std::int64_t{2} * std::bit_cast<std::uint32_t>(value);
}

bool IsNumber(const brixFloatPoint& p) { return !std::isnan(p.x) && !std::isnan(p.y) && !std::isnan(p.z); }

/// Sets of indices, each known by its smallest one.
class Clusters {
public:
  explicit Clusters(std::size_t count) : Parents(count) { std::iota(Parents.begin(), Parents.end(), 0); }

  int Find(int index) {
    while (At(index) != index) index = At(index) = At(At(index));
    return index;
  }
  void Join(int a, int b) {
    a = Find(a);
    b = Find(b);
    At(std::max(a, b)) = std::min(a, b);
  }

private:
  int& At(int index) { return Parents[static_cast<std::size_t>(index)]; }
  std::vector<int> Parents;
};

struct CellMember {
  Cell Place;
  int Index;
};
using CellMembers = std::span<const CellMember>;  // of one cell

// One of equal points is enough, and joined to the others here.
std::vector<CellMember> MembersOfCells(std::span<const brixFloatPoint> points, Clusters& clusters) {
  std::vector<CellMember> all;
  all.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const brixFloatPoint& p = points[i];
    if (IsNumber(p)) all.push_back({{CellOf(p.x), CellOf(p.y), CellOf(p.z)}, static_cast<int>(i)});
  }
  std::sort(all.begin(), all.end(), [](const CellMember& a, const CellMember& b) {
    return std::tie(a.Place, a.Index) < std::tie(b.Place, b.Index);
  });
  const auto equal = [&points](const CellMember& a, const CellMember& b) {
    const brixFloatPoint& p = points[static_cast<std::size_t>(a.Index)];
    const brixFloatPoint& q = points[static_cast<std::size_t>(b.Index)];
    return p.x == q.x && p.y == q.y && p.z == q.z;
  };
  std::size_t kept = 0;
  for (const CellMember& member : all) {
    const bool alone = kept == 0 || all[kept - 1].Place != member.Place;
    if (!alone) clusters.Join(all[kept - 1].Index, member.Index);
    if (alone || !equal(all[kept - 1], member)) all[kept++] = member;
  }
  all.resize(kept);
  return all;
}

std::vector<CellMembers> CellsOf(CellMembers members) {
  std::vector<CellMembers> cells;
  for (std::size_t begin = 0; begin < members.size();) {
    std::size_t end = begin + 1;
    while (end < members.size() && members[end].Place == members[begin].Place) ++end;
    cells.push_back(members.subspan(begin, end - begin));
    begin = end;
  }
  return cells;
}

// Joins two cells if a point of one coincides with a point of the other.
void CompareCells(std::span<const brixFloatPoint> points, CellMembers a, CellMembers b, Clusters& clusters,
                  std::int64_t& comparisons) {
  if (clusters.Find(a.front().Index) == clusters.Find(b.front().Index)) return;
  for (const CellMember& i : a) {
    for (const CellMember& j : b) {
      if (--comparisons < 0) return;
      if (points[static_cast<std::size_t>(i.Index)] == points[static_cast<std::size_t>(j.Index)]) {
        clusters.Join(i.Index, j.Index);
        return;
      }
    }
  }
}

// Where neighbours lie in the order of the cells behind a cell; those before it see it as theirs.
constexpr std::pair<Cell, Cell> NeighbourStretches[] = {
    {{0, 0, 1}, {0, 0, 1}},  {{0, 1, -1}, {0, 1, 1}}, {{1, -1, -1}, {1, -1, 1}},
    {{1, 0, -1}, {1, 0, 1}}, {{1, 1, -1}, {1, 1, 1}},
};

Cell operator+(const Cell& a, const Cell& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }

// Both places move on through the order, so each stretch is found in one pass.
void JoinNeighbours(std::span<const brixFloatPoint> points, const std::vector<CellMembers>& cells, Clusters& clusters) {
  std::int64_t comparisons = ComparisonsOfAPoint * static_cast<std::int64_t>(points.size());
  for (const auto& [low, high] : NeighbourStretches) {
    auto first = cells.begin();
    for (const CellMembers& cell : cells) {
      const Cell& place = cell.front().Place;
      while (first != cells.end() && first->front().Place < place + low) ++first;
      for (auto near = first; near != cells.end() && near->front().Place <= place + high; ++near)
        CompareCells(points, cell, *near, clusters, comparisons);
    }
  }
}

}  // namespace

bool SortPointArrayForProximity(const brixFloatPointArray& points, brixIntArray& order) {
  const std::size_t count = points.GetSize();
  if (count == 0) return false;
  Clusters clusters(count);
  const std::vector<CellMember> members = MembersOfCells(points.View(), clusters);
  JoinNeighbours(points.View(), CellsOf(members), clusters);

  // A counting sort by cluster keeps the indices of a cluster in their order.
  std::vector<int> places(count + 1);
  for (std::size_t i = 0; i < count; ++i) ++places[static_cast<std::size_t>(clusters.Find(static_cast<int>(i))) + 1];
  std::partial_sum(places.begin(), places.end(), places.begin());
  order = brixIntArray(static_cast<int>(count));
  const std::span<int> sorted = order.Edit();
  for (std::size_t i = 0; i < count; ++i) {
    const auto cluster = static_cast<std::size_t>(clusters.Find(static_cast<int>(i)));
    sorted[static_cast<std::size_t>(places[cluster]++)] = static_cast<int>(i);
  }
  return true;
}
