#pragma once

#include <cstdint>
#include <memory>

#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/CVRMLParser.h"

namespace qelvrml {

/// What an elevation grid has beside its heights. Dimensions are cut to integers.
struct GridShape {
  double XDimension = 0.0;
  double XSpacing = 0.0;
  double ZDimension = 0.0;
  double ZSpacing = 0.0;

  bool operator==(const GridShape&) const = default;
  int GetColumns() const { return CutToInt(XDimension); }
  int GetRows() const { return CutToInt(ZDimension); }
  /// Whether there can be a grid; one with more than MaximumPaddedHeights points needs all of its heights.
  bool IsSound(std::uint64_t heights) const;
  /// Of a sound shape.
  std::uint64_t GetPointCount() const {
    return static_cast<std::uint64_t>(GetColumns()) * static_cast<std::uint64_t>(GetRows());
  }
};

/// Makes the heights of a grid to the points of a mesh while they are read: in a file of one large grid they would take
/// as much memory as the model once more.
class GridReader {
public:
  explicit GridReader(CVRMLParser& parser) : Parser(parser) {}

  /// Reads a list of heights as ParseFloatArray does. False, and nothing moves, where only heights will do: for a list
  /// that lacks some of them, among others, and for all behind it.
  bool ReadHeights(const GridShape& shape);
  /// Reads the heights once more, as they are, when the node turns out to be another one than it seemed. Nothing moves.
  void ReadHeightsAgain(brixDoubleArray& heights);

  /// Another list has taken the place of the one that was read.
  void Drop() { Points = {}; }

  bool HasPoints() const { return !Points.IsEmpty(); }
  const GridShape& GetShape() const { return Shape; }
  /// Points of the mesh in world coordinates; they are still to be paid for.
  const brixFloatPointArray& GetPoints() const { return Points; }

private:
  bool CanMakePoints(const GridShape& shape) const;

  CVRMLParser& Parser;
  CGenericIOState HeightsPlace;
  GridShape Shape;
  brixFloatPointArray Points;
  bool Incomplete = false;  ///< a list has lacked heights
};

}  // namespace qelvrml
