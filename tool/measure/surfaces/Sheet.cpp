#include "measure/surfaces/Sheet.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <tuple>
#include <utility>

#include "measure/surfaces/TurnSets.h"

namespace {

std::pair<unsigned, unsigned> EdgeOf(const EdgeUse& use) { return std::minmax(use.From, use.To); }

bool ComesBefore(const EdgeUse& a, const EdgeUse& b) {
  const std::pair<unsigned, unsigned> edgeOfA = EdgeOf(a);
  const std::pair<unsigned, unsigned> edgeOfB = EdgeOf(b);
  return std::tie(edgeOfA, a.Sheet, a.From) < std::tie(edgeOfB, b.Sheet, b.From);
}

// Calls `take` for each run of neighbours that are the same.
template <class Same, class Take>
void ForEachRun(std::span<const EdgeUse> uses, Same same, Take take) {
  for (std::size_t start = 0; start < uses.size();) {
    std::size_t end = start + 1;
    while (end < uses.size() && same(uses[start], uses[end])) ++end;
    take(uses.subspan(start, end - start));
    start = end;
  }
}

bool AreOfOneEdge(const EdgeUse& a, const EdgeUse& b) { return EdgeOf(a) == EdgeOf(b); }

// Whether as many uses go one way as the other.
bool IsBalanced(std::span<const EdgeUse> usesOfAnEdge) {
  const auto forward =
      std::count_if(usesOfAnEdge.begin(), usesOfAnEdge.end(), [](const EdgeUse& use) { return use.From < use.To; });
  return 2 * static_cast<std::size_t>(forward) == usesOfAnEdge.size();
}

void CountEdge(std::span<const EdgeUse> uses, JoinedSurface& surface) {
  if (uses.size() == 1) ++surface.OpenEdges;
  if (uses.size() > 2) ++surface.NonManifoldEdges;
  if (uses.size() % 2 != 0) surface.IsClosed = false;
  if (!IsBalanced(uses)) surface.IsAlike = false;
}

// Puts the sheets of each set together; gives for each set the index of what they make, by its root.
std::vector<unsigned> SumSheets(unsigned count, const std::function<Sheet(unsigned)>& sheetAt, TurnSets& sets,
                                std::vector<Sheet>& sums) {
  constexpr unsigned None = std::numeric_limits<unsigned>::max();
  std::vector<unsigned> indices(count, None);
  for (unsigned i = 0; i < count; ++i) {
    const Sheet sheet = sheetAt(i);
    const TurnSets::Place place = sets.Find(i);
    unsigned& index = indices[place.Root];
    if (index == None) {
      index = static_cast<unsigned>(sums.size());
      sums.push_back({.Origin = sheet.Origin, .HasSides = sets.IsConsistent(place.Root)});
    }
    sums[index].Add(sheet, place.Turned);
  }
  return indices;
}

// Whether each sheet has sides, and is closed by itself.
bool HaveVolumes(const JoinedSurface& surface) {
  bool all = std::all_of(surface.Sheets.begin(), surface.Sheets.end(), [](const Sheet& s) { return s.HasSides; });
  const auto same = [](const EdgeUse& a, const EdgeUse& b) { return a.Sheet == b.Sheet && AreOfOneEdge(a, b); };
  ForEachRun(surface.Joints, same, [&](std::span<const EdgeUse> uses) { all = all && IsBalanced(uses); });
  return all;
}

}  // namespace

// What another origin adds is a cone over the sheet, whatever its form.
void Sheet::Add(const Sheet& other, bool turned) {
  const double sign = turned ? -1.0 : 1.0;
  Volume += sign * (other.Volume + Dot(other.Area, other.Origin - Origin) / 3.0);
  Area = Area + sign * other.Area;
  HasSides = HasSides && other.HasSides;
}

Sheet SheetOf(const brixFloatPoint& a, const brixFloatPoint& b, const brixFloatPoint& c, const Vector3& origin) {
  const Vector3 corner = ToVector(a);
  const Vector3 area = 0.5 * Cross(ToVector(b) - corner, ToVector(c) - corner);
  return {origin, Dot(corner - origin, area) / 3.0, area, true};
}

JoinedSurface JoinSheets(unsigned count, const std::function<Sheet(unsigned)>& sheetAt, std::vector<EdgeUse> uses) {
  std::sort(uses.begin(), uses.end(), ComesBefore);
  JoinedSurface surface;
  TurnSets sets(count);
  ForEachRun(uses, AreOfOneEdge, [&](std::span<const EdgeUse> edge) {
    CountEdge(edge, surface);
    if (edge.size() == 2) {
      sets.Join(edge[0].Sheet, edge[1].Sheet, edge[0].From == edge[1].From);
    } else {
      surface.Joints.insert(surface.Joints.end(), edge.begin(), edge.end());
    }
  });
  const std::vector<unsigned> indices = SumSheets(count, sheetAt, sets, surface.Sheets);
  for (EdgeUse& use : surface.Joints) {
    const TurnSets::Place place = sets.Find(use.Sheet);
    if (place.Turned) std::swap(use.From, use.To);
    use.Sheet = indices[place.Root];
  }
  std::sort(surface.Joints.begin(), surface.Joints.end(), ComesBefore);
  return surface;
}

std::optional<double> VolumeOf(const JoinedSurface& closed) {
  if (closed.IsAlike && !closed.Sheets.empty()) {
    Sheet whole = {.Origin = closed.Sheets.front().Origin};
    for (const Sheet& sheet : closed.Sheets) whole.Add(sheet, false);
    if (whole.HasSides) return std::fabs(whole.Volume);
  }
  if (!HaveVolumes(closed)) return std::nullopt;
  double sum = 0.0;
  for (const Sheet& sheet : closed.Sheets) sum += std::fabs(sheet.Volume);
  return sum;
}
