#include "measure/surfaces/Weld.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "measure/surfaces/KeyHash.h"
#include "qelvrml/platform/brix/brixBBox.h"

namespace {

constexpr double WeldShare = 1e-6;  // of the reach
constexpr unsigned LevelCount = 16;
constexpr double LevelRatio = 4.0;
constexpr unsigned NoPoint = std::numeric_limits<unsigned>::max();

using FloatTriple = std::array<float, 3>;

struct PlacedIndex {
  FloatTriple Place;
  unsigned Index;
  bool operator<(const PlacedIndex& other) const { return std::tie(Place, Index) < std::tie(other.Place, other.Index); }
};

/// A point, and the level of the distance at which others count as one with it: that of each level is smaller.
struct LevelledPoint {
  unsigned Level;
  unsigned Index;
  bool operator<(const LevelledPoint& other) const {
    return std::tie(Level, Index) < std::tie(other.Level, other.Index);
  }
};

/// Finds points that are near others.
class NearFinder {
public:
  NearFinder(std::span<const brixFloatPoint> points, float largestReach) : Points(points) {
    double distance = WeldShare * largestReach;
    for (double& onLevel : Distances) {
      onLevel = distance;
      distance /= LevelRatio;
    }
  }

  /// The finest level that suits a reach.
  unsigned LevelOf(float reach) const {
    unsigned level = 0;
    while (level + 1 < LevelCount && Distances[level + 1] >= WeldShare * reach) ++level;
    return level;
  }

  /// Leaves out what is nowhere near any other point: as a rule most points are.
  std::vector<LevelledPoint> WithoutLonely(const std::vector<LevelledPoint>& points) {
    constexpr double Width = 64.0;
    for (const LevelledPoint& point : points) InUse[point.Level] = true;
    std::vector<std::pair<std::uint64_t, std::size_t>> places;
    for (std::size_t i = 0; i < points.size(); ++i) {
      for (unsigned level = 0; level <= points[i].Level; ++level) {
        if (!InUse[level]) continue;
        ForEachCellAround(points[i].Index, level, Width, [&](std::uint64_t key) { places.emplace_back(key, i); });
      }
    }
    std::sort(places.begin(), places.end());
    std::vector<bool> lonely(points.size(), true);
    for (std::size_t i = 1; i < places.size(); ++i) {
      if (places[i].first == places[i - 1].first) lonely[places[i].second] = lonely[places[i - 1].second] = false;
    }
    std::vector<LevelledPoint> others;
    for (std::size_t i = 0; i < points.size(); ++i) {
      if (!lonely[i]) others.push_back(points[i]);
    }
    return others;
  }

  /// The point that a point counts as. Points are entered in order of their levels.
  unsigned Enter(const LevelledPoint& point) {
    for (unsigned level = 0; level <= point.Level; ++level) {
      if (!InUse[level]) continue;
      const unsigned nearest = FindNearest(point.Index, level);
      if (nearest != NoPoint) return nearest;
    }
    const std::uint64_t key = KeyOf(point.Level, CellOf(point.Index, point.Level, CellWidth, 0.0));
    const unsigned first = Cells.try_emplace(key, point.Index).first->second;
    return DistanceBetween(point.Index, first) <= CellWidth * Distances[point.Level] ? first : point.Index;
  }

private:
  static constexpr double Offset = 0.37;    // of a cell: places at 0 are many, and so none is on the border of one
  static constexpr double Farthest = 1e15;  // cells, which are whole numbers there
  static constexpr double CellWidth = 2.0;  // distances: all points in a cell can count as one

  using Cell = std::array<std::int64_t, 3>;

  Cell CellOf(unsigned point, unsigned level, double width, double shift) const {
    const brixFloatPoint& p = Points[point];
    const FloatTriple place = {p.x, p.y, p.z};
    const double distance = Distances[level];
    Cell cell{};
    if (distance == 0.0) return cell;
    for (std::size_t i = 0; i < 3; ++i) {
      const double index = std::floor((place[i] / distance + shift) / width + Offset);
      cell[i] = static_cast<std::int64_t>(std::clamp(index, -Farthest, Farthest));
    }
    return cell;
  }

  // As a rule points of a level are no more than half a million cells away from the origin, which 20 bits hold. Cells
  // of others share a key with some that are far away.
  static std::uint64_t KeyOf(unsigned level, const Cell& cell) {
    std::uint64_t key = level;
    for (const std::int64_t index : cell) key = (key << 20U) | (static_cast<std::uint64_t>(index) & 0xFFFFFU);
    return key;
  }

  // Cells so many distances wide, two at least, with places that are no farther away than the distance.
  template <class Take>
  void ForEachCellAround(unsigned point, unsigned level, double width, Take take) const {
    const Cell first = CellOf(point, level, width, -1.0);
    const Cell last = CellOf(point, level, width, 1.0);
    for (std::int64_t x = first[0]; x <= last[0]; ++x) {
      for (std::int64_t y = first[1]; y <= last[1]; ++y) {
        for (std::int64_t z = first[2]; z <= last[2]; ++z) take(KeyOf(level, {x, y, z}));
      }
    }
  }

  double DistanceBetween(unsigned a, unsigned b) const {
    const brixFloatPoint& p = Points[a];
    const brixFloatPoint& q = Points[b];
    return std::max({std::fabs(double{p.x} - q.x), std::fabs(double{p.y} - q.y), std::fabs(double{p.z} - q.z)});
  }

  unsigned FindNearest(unsigned point, unsigned level) const {
    unsigned nearest = NoPoint;
    double least = Distances[level];
    ForEachCellAround(point, level, CellWidth, [&](std::uint64_t key) {
      const auto found = Cells.find(key);
      if (found == Cells.end() || DistanceBetween(point, found->second) > least) return;
      nearest = found->second;
      least = DistanceBetween(point, nearest);
    });
    return nearest;
  }

  std::span<const brixFloatPoint> Points;
  std::array<double, LevelCount> Distances{};
  std::bitset<LevelCount> InUse;
  std::unordered_map<std::uint64_t, unsigned, KeyHash> Cells;  ///< the one point that those in a cell count as
};

}  // namespace

std::vector<unsigned> WeldEqual(std::span<const brixFloatPoint> points) {
  std::vector<PlacedIndex> sorted;
  sorted.reserve(points.size());
  for (const brixFloatPoint& p : points) sorted.push_back({{p.x, p.y, p.z}, static_cast<unsigned>(sorted.size())});
  std::sort(sorted.begin(), sorted.end());
  std::vector<unsigned> numbers(points.size());
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    const bool same = i > 0 && sorted[i].Place == sorted[i - 1].Place;
    numbers[sorted[i].Index] = same ? numbers[sorted[i - 1].Index] : sorted[i].Index;
  }
  return numbers;
}

void WeldNear(std::span<const brixFloatPoint> points, std::span<const float> reach, std::vector<unsigned>& numbers) {
  if (points.empty()) return;
  NearFinder finder(points, *std::max_element(reach.begin(), reach.end()));
  std::vector<unsigned> levels(points.size(), LevelCount);
  for (std::size_t i = 0; i < points.size(); ++i) {
    unsigned& level = levels[numbers[i]];
    level = std::min(level, finder.LevelOf(reach[i]));
  }
  std::vector<LevelledPoint> candidates;
  for (unsigned i = 0; i < points.size(); ++i) {
    if (numbers[i] == i) candidates.push_back({levels[i], i});
  }
  std::sort(candidates.begin(), candidates.end());
  std::vector<unsigned> entered(points.size());
  std::iota(entered.begin(), entered.end(), 0U);
  for (const LevelledPoint& candidate : finder.WithoutLonely(candidates)) {
    entered[candidate.Index] = finder.Enter(candidate);
  }
  for (unsigned& number : numbers) number = entered[number];
}

float ReachOf(std::span<const brixFloatPoint> points) {
  constexpr float MostExtents = 1000.0F;
  float largest = 0.0F;
  brixBBox box;
  for (const brixFloatPoint& p : points) {
    largest = std::max({largest, std::fabs(p.x), std::fabs(p.y), std::fabs(p.z)});
    box.Add(p);
  }
  return std::min(largest, MostExtents * box.GetLargestDimension());
}
