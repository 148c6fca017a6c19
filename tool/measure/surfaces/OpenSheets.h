#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "measure/surfaces/Sheet.h"

/// An edge on the border of a sheet.
struct BorderEdge {
  static constexpr unsigned None = 0xFFFFFFFF;   ///< not an edge: its ends coincide
  static constexpr unsigned Alone = 0xFFFFFFFE;  ///< no other sheet has it

  EdgeUse Use;
  unsigned Number = None;  ///< the same for all uses of the edge
};

/// The sheets of all objects of a scene that aren't closed, and which of them hang together.
class OpenSheets {
public:
  /// Indices of sheets.
  struct Range {
    unsigned First = 0;
    unsigned End = 0;
  };

  /// Takes the sheets of an object; corners are indices of its points.
  Range Add(const JoinedSurface& surface, std::span<const brixFloatPoint> points);
  /// Finds edges that coincide, whatever objects they belong to. No sheet is added behind that.
  void Weld();

  const Sheet& GetSheet(unsigned sheet) const { return Sheets[sheet].Form; }
  std::span<const BorderEdge> BorderOf(unsigned sheet) const;

  /// The first of the sheets that hang together with this one.
  unsigned RootOf(unsigned sheet);
  /// Makes two sheets, and all that hang together with them, hang together. False if they did before.
  bool Join(unsigned a, unsigned b);
  /// All sheets that hang together with this one, in order.
  std::vector<unsigned> PieceOf(unsigned sheet) const;
  /// A number that is kept for the sheets that hang together, 0 at first; joining adds them up.
  std::uint64_t& OddEdgesOf(unsigned sheet) { return Sheets[RootOf(sheet)].OddEdges; }

private:
  struct Item {
    Sheet Form;
    std::size_t FirstEdge;
    std::size_t EdgeCount;
    unsigned Parent;
    unsigned Next;  ///< of those that hang together, in a ring
    std::uint64_t OddEdges = 0;
  };

  void NumberEdges(const std::vector<unsigned>& corners);

  std::vector<Item> Sheets;
  std::vector<BorderEdge> Edges;  ///< in order of sheets
  std::vector<brixFloatPoint> Corners;
  std::vector<float> Reach;  ///< of the object that a corner belongs to
};
