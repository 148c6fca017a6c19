#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "measure/surfaces/KeyHash.h"
#include "measure/surfaces/OpenSheets.h"

/// A closed surface.
struct Body {
  std::optional<double> Volume;
  std::uint64_t NonManifoldEdges = 0;
};

/// Open sheets of a group and the edges on their borders. Sheets that share an edge there hang together.
class Pool {
public:
  explicit Pool(OpenSheets& sheets) : Sheets(&sheets) {}

  void Add(unsigned sheet);
  /// Takes all from another pool, in the time that the smaller one of both takes.
  void Take(Pool other);
  /// Removes what is closed by now.
  std::vector<Body> TakeBodies();

  /// How many pieces hang together each.
  std::uint64_t CountPieces() const { return Pieces; }
  std::uint64_t CountOpenEdges() const { return OpenEdges + EdgesAlone; }
  std::uint64_t CountNonManifoldEdges() const { return NonManifoldEdges; }

private:
  struct Edge {
    std::uint64_t Uses = 0;
    unsigned Sheet = 0;  ///< one of those that use it
  };

  void Join(unsigned number, const Edge& more);
  void Count(const Edge& edge, bool added);
  Body TakeBody(unsigned root);

  OpenSheets* Sheets;
  std::unordered_map<unsigned, Edge, KeyHash> Edges;  ///< those that several sheets have, by number
  std::vector<unsigned> Changed;  ///< sheets that hang together with more than when bodies were taken
  std::uint64_t Pieces = 0;
  std::uint64_t EdgesAlone = 0;
  std::uint64_t OpenEdges = 0;  ///< without those
  std::uint64_t NonManifoldEdges = 0;
};
