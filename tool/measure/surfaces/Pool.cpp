#include "measure/surfaces/Pool.h"

#include <algorithm>
#include <utility>

namespace {

bool IsEdge(const BorderEdge& edge) { return edge.Number != BorderEdge::None; }

}  // namespace

// A sheet that is as small as rounding has lost its border.
void Pool::Add(unsigned sheet) {
  const std::span<const BorderEdge> border = Sheets->BorderOf(sheet);
  if (!border.empty() && std::none_of(border.begin(), border.end(), IsEdge)) return;
  ++Pieces;
  Changed.push_back(sheet);
  for (const BorderEdge& edge : border) {
    if (!IsEdge(edge)) continue;
    ++Sheets->OddEdgesOf(sheet);
    if (edge.Number == BorderEdge::Alone) {
      ++EdgesAlone;
    } else {
      Join(edge.Number, {1, sheet});
    }
  }
}

void Pool::Take(Pool other) {
  if (other.Edges.size() > Edges.size()) std::swap(*this, other);
  Pieces += other.Pieces;
  EdgesAlone += other.EdgesAlone;
  Changed.insert(Changed.end(), other.Changed.begin(), other.Changed.end());
  for (const auto& [number, edge] : other.Edges) Join(number, edge);
}

// Adds uses of an edge, which the piece of their sheet counts if they are odd.
void Pool::Join(unsigned number, const Edge& more) {
  Edge& edge = Edges[number];
  if (edge.Uses > 0) {
    if (Sheets->Join(edge.Sheet, more.Sheet)) --Pieces;
    Changed.push_back(more.Sheet);
    Count(edge, false);
    if (edge.Uses % 2 != 0 && more.Uses % 2 != 0) Sheets->OddEdgesOf(more.Sheet) -= 2;
  }
  edge = {edge.Uses + more.Uses, more.Sheet};
  Count(edge, true);
}

void Pool::Count(const Edge& edge, bool added) {
  const std::uint64_t difference = added ? 1 : std::uint64_t(-1);
  if (edge.Uses == 1) OpenEdges += difference;
  if (edge.Uses > 2) NonManifoldEdges += difference;
}

std::vector<Body> Pool::TakeBodies() {
  std::vector<unsigned> roots = std::exchange(Changed, {});
  for (unsigned& sheet : roots) sheet = Sheets->RootOf(sheet);
  std::sort(roots.begin(), roots.end());
  roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
  std::vector<Body> bodies;
  for (const unsigned root : roots) {
    if (Sheets->OddEdgesOf(root) == 0) bodies.push_back(TakeBody(root));
  }
  return bodies;
}

Body Pool::TakeBody(unsigned root) {
  const std::vector<unsigned> piece = Sheets->PieceOf(root);
  std::vector<EdgeUse> uses;
  for (unsigned i = 0; i < piece.size(); ++i) {
    for (const BorderEdge& border : Sheets->BorderOf(piece[i])) {
      if (!IsEdge(border)) continue;
      uses.push_back({border.Use.From, border.Use.To, i});
      const auto edge = Edges.find(border.Number);
      if (edge == Edges.end()) continue;
      Count(edge->second, false);
      Edges.erase(edge);
    }
  }
  --Pieces;
  const JoinedSurface surface = JoinSheets(
      static_cast<unsigned>(piece.size()), [&](unsigned i) { return Sheets->GetSheet(piece[i]); }, std::move(uses));
  return {VolumeOf(surface), surface.NonManifoldEdges};
}
