#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "scene/Vector3.h"

/// A piece of a surface whose faces agree about its sides: a triangle, or what several of them make.
struct Sheet {
  Vector3 Origin{};      ///< a point nearby
  double Volume = 0.0;   ///< between the sheet and its origin; below zero where that is in front of the faces
  Vector3 Area{};        ///< sum of the faces' areas, each along its normal
  bool HasSides = true;  ///< false for one like a Moebius strip

  /// Adds another sheet, or its back. The origin stays.
  void Add(const Sheet& other, bool turned);
};

/// The sheet of a triangle, counter-clockwise seen from its front.
Sheet SheetOf(const brixFloatPoint& a, const brixFloatPoint& b, const brixFloatPoint& c, const Vector3& origin);

/// An edge as a sheet has it on its border; the sheet's front is seen on the left of the way.
struct EdgeUse {
  unsigned From;   ///< number of a corner
  unsigned To;     ///< number of another one
  unsigned Sheet;  ///< index
};

/// What sheets are when they are joined along edges that have exactly two uses.
struct JoinedSurface {
  std::vector<Sheet> Sheets;           ///< joined ones, each facing as its first one did
  std::vector<EdgeUse> Joints;         ///< uses of all other edges by joined sheets; in order of edges, then of sheets
  std::uint64_t OpenEdges = 0;         ///< edges with one use
  std::uint64_t NonManifoldEdges = 0;  ///< edges with more than two
  bool IsClosed = true;                ///< each edge has an even number of uses
  bool IsAlike = true;                 ///< each edge is used as often one way as the other
};

/// Joins `count` sheets.
JoinedSurface JoinSheets(unsigned count, const std::function<Sheet(unsigned)>& sheetAt, std::vector<EdgeUse> uses);

/// The volume in a closed surface: with its cavities taken off if all faces are alike, else the sum of the volumes in
/// its sheets, whichever way these face. None if a sheet has no sides, or isn't closed by itself.
std::optional<double> VolumeOf(const JoinedSurface& closed);
