#include "measure/surfaces/OpenSheets.h"

#include <algorithm>
#include <utility>

#include "measure/surfaces/Weld.h"

OpenSheets::Range OpenSheets::Add(const JoinedSurface& surface, std::span<const brixFloatPoint> points) {
  const auto first = static_cast<unsigned>(Sheets.size());
  for (const Sheet& sheet : surface.Sheets) {
    const auto index = static_cast<unsigned>(Sheets.size());
    Sheets.push_back({.Form = sheet, .FirstEdge = 0, .EdgeCount = 0, .Parent = index, .Next = index});
  }
  std::vector<EdgeUse> joints = surface.Joints;
  std::stable_sort(joints.begin(), joints.end(), [](const EdgeUse& a, const EdgeUse& b) { return a.Sheet < b.Sheet; });
  std::vector<unsigned> corners;
  for (const EdgeUse& use : joints) corners.insert(corners.end(), {use.From, use.To});
  std::sort(corners.begin(), corners.end());
  corners.erase(std::unique(corners.begin(), corners.end()), corners.end());
  const auto numberOf = [&corners, before = Corners.size()](unsigned corner) {
    const auto place = std::lower_bound(corners.begin(), corners.end(), corner);
    return static_cast<unsigned>(before + static_cast<std::size_t>(place - corners.begin()));
  };
  for (const EdgeUse& use : joints) {
    Item& item = Sheets[first + use.Sheet];
    if (item.EdgeCount++ == 0) item.FirstEdge = Edges.size();
    Edges.push_back({{numberOf(use.From), numberOf(use.To), first + use.Sheet}});
  }
  const float reach = ReachOf(points);
  for (const unsigned corner : corners) {
    Corners.push_back(points[corner]);
    Reach.push_back(reach);
  }
  return {first, static_cast<unsigned>(Sheets.size())};
}

void OpenSheets::Weld() {
  std::vector<unsigned> numbers = WeldEqual(Corners);
  WeldNear(Corners, Reach, numbers);
  NumberEdges(numbers);
  Corners = {};
  Reach = {};
}

void OpenSheets::NumberEdges(const std::vector<unsigned>& corners) {
  std::vector<std::pair<std::uint64_t, std::size_t>> order;
  for (std::size_t i = 0; i < Edges.size(); ++i) {
    EdgeUse& use = Edges[i].Use;
    use.From = corners[use.From];
    use.To = corners[use.To];
    const auto [less, more] = std::minmax(use.From, use.To);
    if (less != more) order.emplace_back((std::uint64_t{less} << 32U) | more, i);
  }
  std::sort(order.begin(), order.end());
  unsigned number = 0;
  for (std::size_t start = 0; start < order.size();) {
    std::size_t end = start;
    while (end < order.size() && order[end].first == order[start].first) ++end;
    const unsigned shared = end - start > 1 ? number++ : BorderEdge::Alone;
    for (; start < end; ++start) Edges[order[start].second].Number = shared;
  }
}

std::span<const BorderEdge> OpenSheets::BorderOf(unsigned sheet) const {
  return std::span(Edges).subspan(Sheets[sheet].FirstEdge, Sheets[sheet].EdgeCount);
}

unsigned OpenSheets::RootOf(unsigned sheet) {
  while (Sheets[sheet].Parent != sheet) {
    unsigned& parent = Sheets[sheet].Parent;
    parent = Sheets[parent].Parent;
    sheet = parent;
  }
  return sheet;
}

bool OpenSheets::Join(unsigned a, unsigned b) {
  const auto [root, child] = std::minmax({RootOf(a), RootOf(b)});
  if (root == child) return false;
  Sheets[child].Parent = root;
  Sheets[root].OddEdges += Sheets[child].OddEdges;
  std::swap(Sheets[root].Next, Sheets[child].Next);
  return true;
}

std::vector<unsigned> OpenSheets::PieceOf(unsigned sheet) const {
  std::vector<unsigned> piece = {sheet};
  for (unsigned next = Sheets[sheet].Next; next != sheet; next = Sheets[next].Next) piece.push_back(next);
  std::sort(piece.begin(), piece.end());
  return piece;
}
