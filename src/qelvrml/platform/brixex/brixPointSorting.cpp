// Clusters of coinciding points. Points lie in cells of a grid as wide as the tolerance: those in one cell coincide,
// those in neighbouring cells are compared.

#include "qelvrml/platform/brixex/brixPointSorting.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <unordered_map>
#include <vector>

namespace {

constexpr double CellSize = brixFloatPoint::Tolerance;
// From here on neighbouring floats are further apart than the tolerance, and only equal ones coincide.
constexpr float CoarseMagnitude = 32.0F;
// Comparisons for each point. Cells so full that this doesn't suffice hold points that nothing tells apart in practice.
constexpr std::int64_t ComparisonsOfAPoint = 1000;

using Cell = std::array<std::int64_t, 3>;

struct CellHash {
  std::size_t operator()(const Cell& cell) const {
    std::uint64_t hash = 0;
    for (const std::int64_t part : cell)
      hash = (std::rotl(hash, 23) ^ static_cast<std::uint64_t>(part)) * 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(hash ^ (hash >> 32U));
  }
};

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

using Grid = std::unordered_map<Cell, std::vector<int>, CellHash>;

Grid MakeGrid(std::span<const brixFloatPoint> points, Clusters& clusters) {
  Grid grid;
  grid.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!IsNumber(points[i])) continue;
    std::vector<int>& members = grid[{CellOf(points[i].x), CellOf(points[i].y), CellOf(points[i].z)}];
    if (!members.empty()) clusters.Join(members.front(), static_cast<int>(i));
    const auto equal = [&](int member) {
      const brixFloatPoint& p = points[static_cast<std::size_t>(member)];
      return p.x == points[i].x && p.y == points[i].y && p.z == points[i].z;
    };
    if (members.empty() || !equal(members.back()))
      members.push_back(static_cast<int>(i));  // one of equal points is enough
  }
  return grid;
}

// Joins two cells if a point of one coincides with a point of the other.
void CompareCells(std::span<const brixFloatPoint> points, const std::vector<int>& a, const std::vector<int>& b,
                  Clusters& clusters, std::int64_t& comparisons) {
  if (clusters.Find(a.front()) == clusters.Find(b.front())) return;
  for (const int i : a) {
    for (const int j : b) {
      if (--comparisons < 0) return;
      if (points[static_cast<std::size_t>(i)] == points[static_cast<std::size_t>(j)]) {
        clusters.Join(i, j);
        return;
      }
    }
  }
}

void JoinNeighbours(std::span<const brixFloatPoint> points, const Grid& grid, Clusters& clusters) {
  constexpr int NeighbourCount = 27;
  std::int64_t comparisons = ComparisonsOfAPoint * static_cast<std::int64_t>(points.size());
  for (const auto& [cell, members] : grid) {
    for (int n = NeighbourCount / 2 + 1; n < NeighbourCount; ++n) {  // the other half sees this cell as its neighbour
      const Cell neighbour = {cell[0] + n / 9 - 1, cell[1] + n / 3 % 3 - 1, cell[2] + n % 3 - 1};
      const auto found = grid.find(neighbour);
      if (found != grid.end()) CompareCells(points, members, found->second, clusters, comparisons);
    }
  }
}

}  // namespace

bool SortPointArrayForProximity(const brixFloatPointArray& points, brixIntArray& order) {
  const std::size_t count = points.GetSize();
  if (count == 0) return false;
  Clusters clusters(count);
  JoinNeighbours(points.View(), MakeGrid(points.View(), clusters), clusters);

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
