#include "qelvrml/geometry/GridReader.h"

#include <algorithm>
#include <limits>
#include <span>
#include <vector>

#include "qelvrml/parser/Limits.h"
#include "qelvrml/parser/reading/NumbersAhead.h"
#include "qelvrml/platform/brix/ArrayWriter.h"
#include "qelvrml/platform/brixex/shapes/PointBlocks.h"
#include "qelvrml/platform/system/HugePages.h"

namespace qelvrml {
namespace {

// A file gives heights along the rows of a grid, a mesh has its points along the columns. Heights wait in a block of
// some rows, or a part of one, so that they don't go to another place of memory each.
class MeshWriter {
public:
  MeshWriter(const GridShape& shape, const brixMatrix4x4& placement, std::span<brixFloatPoint> points)
      : Shape(shape),
        Placement(placement),
        Points(points),
        Columns(static_cast<std::size_t>(shape.GetColumns())),
        Rows(static_cast<std::size_t>(shape.GetRows())),
        Block(std::min(Columns, MostColumns) * MostRows) {
    OpenBlock();
  }

  /// What is beyond the grid is left out.
  void Add(float height) {
    if (IsComplete()) return;
    Block[Filled] = height;
    if (++Filled == BlockSize) CloseBlock();
  }
  bool IsComplete() const { return FirstRow == Rows; }

private:
  static constexpr std::size_t MostColumns = 16'384;
  static constexpr std::size_t MostRows = 16;

  void OpenBlock() {
    Width = std::min(Columns - FirstColumn, MostColumns);
    Height = Columns > MostColumns ? 1 : std::min(Rows - FirstRow, MostRows);
    BlockSize = Width * Height;
    Filled = 0;
  }

  std::span<brixFloatPoint> PartOf(std::size_t column) const {
    return Points.subspan(column * Rows + FirstRow, Height);
  }

  void CloseBlock() {
    for (std::size_t i = 0; i < Width; ++i) {
      const std::span<brixFloatPoint> part = PartOf(FirstColumn + i);
      const auto x = static_cast<float>(Shape.XSpacing * static_cast<double>(FirstColumn + i));
      for (std::size_t j = 0; j < Height; ++j) {
        part[j] = {x, Block[j * Width + i], static_cast<float>(Shape.ZSpacing * static_cast<double>(FirstRow + j))};
      }
    }
    for (std::size_t i = 0; i < Width; ++i) Transform(PartOf(FirstColumn + i), Placement);
    FirstColumn += Width;
    if (FirstColumn == Columns) {
      FirstColumn = 0;
      FirstRow += Height;
    }
    OpenBlock();
  }

  const GridShape& Shape;
  const brixMatrix4x4& Placement;
  std::span<brixFloatPoint> Points;
  std::size_t Columns;
  std::size_t Rows;
  std::vector<float> Block;  // some rows of heights
  std::size_t FirstColumn = 0;
  std::size_t FirstRow = 0;
  std::size_t Width = 0;
  std::size_t Height = 0;
  std::size_t BlockSize = 0;
  std::size_t Filled = 0;
};

}  // namespace

bool GridShape::IsSound(std::uint64_t heights) const {
  if (IsNearZero(XDimension) || IsNearZero(XSpacing) || IsNearZero(ZDimension) || IsNearZero(ZSpacing)) return false;
  if (GetColumns() < 1 || GetRows() < 1) return false;
  return GetPointCount() <= std::max<std::uint64_t>(heights, MaximumPaddedHeights);
}

// A name asks for the heights themselves, a fraction in the first dimension shifts the place of each row's heights, and
// a text that is too short for all of them isn't worth the room.
bool GridReader::CanMakePoints(const GridShape& shape) const {
  if (Incomplete || shape.XDimension != shape.GetColumns()) return false;
  const CVRMLIOManager& tokens = *Parser.GetIOManager();
  if (Parser.GetCurrentTokenType() != VRMLTokenOpenBracket || Parser.GetNextTokenType() != VRMLTokenNumber)
    return false;
  if (!Parser.CanAddObjectToSeparator() || Parser.GetDefiningObjects()) return false;
  constexpr std::uint64_t FewestBytes = 2;  // of a height
  constexpr std::size_t Most = std::numeric_limits<int>::max();
  const std::size_t heights = std::min(tokens.GetBytesLeft() / FewestBytes, Most);
  return shape.IsSound(heights) && shape.GetPointCount() <= heights;
}

bool GridReader::ReadHeights(const GridShape& shape) {
  if (!CanMakePoints(shape)) return false;
  Parser.SaveIOState(HeightsPlace);
  Shape = shape;
  const auto points = ArrayWriter<brixFloatPoint>::Allocate(Points, static_cast<unsigned>(shape.GetPointCount()));
  PreferHugePages(points.data(), points.size_bytes());
  MeshWriter writer(Shape, Parser.GetCurrentSeparator()->GetTransformation(), points);
  const auto takeAll = [&writer](NumberCursor& numbers) {
    for (float height = 0.0F; numbers.Take(height);) writer.Add(height);
  };
  Parser.Tokenize();
  while (Parser.GetCurrentTokenType() != VRMLTokenCloseBracket) {
    if (!TakeAhead(Parser, takeAll)) writer.Add(static_cast<float>(Parser.GetCurrentTokenNumericValue()));
    if (!Parser.Tokenize()) break;
  }
  if (writer.IsComplete()) return true;
  Incomplete = true;
  Drop();
  Parser.RestoreIOState(HeightsPlace);
  return false;
}

void GridReader::ReadHeightsAgain(brixDoubleArray& heights) {
  CGenericIOState place;
  if (!Parser.SaveIOState(place) || !Parser.RestoreIOState(HeightsPlace)) return;
  Parser.ParseFloatArray(heights);
  Parser.RestoreIOState(place);
}

}  // namespace qelvrml
