// ElevationGrid: heights over a grid in the XZ plane.
//
//   point (i, j) = (xSpacing * i, height[i + j * xDimension], zSpacing * j)
//   solid: one mesh of xDimension rows of zDimension points; else a line along every grid line in both directions

#include <cmath>
#include <cstdint>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/Limits.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyline.h"

namespace {

using qelvrml::IsNearZero;
using qelvrml::NodeReader;

template <class PointAt>
bool AddMesh(CVRMLParser& parser, int columns, int rows, PointAt pointAt) {
  std::unique_ptr<CKelPolyMesh> mesh(new (std::nothrow) CKelPolyMesh);
  if (!mesh) return false;
  brixFloatPointArray points(columns * rows);
  auto place = points.Edit().begin();
  for (int i = 0; i < columns; ++i) {
    for (int j = 0; j < rows; ++j) *place++ = pointAt(i, j);
  }
  parser.GetCurrentSeparator()->TransformPoints(points);
  mesh->SetPoints(points, columns, rows, false, false);
  return parser.AddObjectToSeparator(mesh.release());
}

template <class PointAt>
bool AddLines(CVRMLParser& parser, int columns, int rows, PointAt pointAt) {
  bool result = false;
  const auto addLine = [&](int count, auto at) {
    std::unique_ptr<CKelPolyline> line(new (std::nothrow) CKelPolyline);
    if (!line) return;
    brixFloatPointArray points(count);
    for (int k = 0; k < count; ++k) points.Edit()[static_cast<std::size_t>(k)] = at(k);
    parser.GetCurrentSeparator()->TransformPoints(points);
    line->SetPolyline(points, false);
    result = parser.AddObjectToSeparator(line.release()) || result;
  };
  for (int i = 0; i < columns; ++i) addLine(rows, [&](int j) { return pointAt(i, j); });
  for (int j = 0; j < rows; ++j) addLine(columns, [&](int i) { return pointAt(i, j); });
  return result;
}
}  // namespace

bool CVRMLParser::ParseElevationGrid() {
  if (!CurrentSeparator) return false;

  bool solid = true;
  brixDoubleArray heights;
  double xDimension = 0.0;
  double xSpacing = 0.0;
  double zDimension = 0.0;
  double zSpacing = 0.0;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenELEVATIONGRID});
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenHEIGHT:
        Tokenize();
        ParseFloatArray(heights);
        break;
      case VRMLTokenSOLID: reader.TakeBoolean(solid); break;
      case VRMLTokenXDIMENSION: reader.TakeNumber(xDimension); break;
      case VRMLTokenXSPACING: reader.TakeNumber(xSpacing); break;
      case VRMLTokenZDIMENSION: reader.TakeNumber(zDimension); break;
      case VRMLTokenZSPACING: reader.TakeNumber(zSpacing); break;
      default: Tokenize(); break;
    }
  });
  return DefineElevationGrid(solid, heights, xDimension, xSpacing, zDimension, zSpacing);
}

brixFloatPoint CVRMLParser::GetElevationGridPoint(double i, double j, const brixDoubleArray& heights, double xDimension,
                                                  double xSpacing, double /*zDimension*/, double zSpacing) {
  const int index = qelvrml::CutToInt(i + j * xDimension);
  const bool given = index >= 0 && static_cast<unsigned>(index) < heights.GetSize();
  const double height = given ? heights[static_cast<std::size_t>(index)] : 0.0;
  return {static_cast<float>(xSpacing * i), static_cast<float>(height), static_cast<float>(zSpacing * j)};
}

bool CVRMLParser::DefineElevationGrid(bool solid, const brixDoubleArray& heights, double xDimension, double xSpacing,
                                      double zDimension, double zSpacing) {
  if (!CurrentSeparator || heights.IsEmpty()) return false;
  if (IsNearZero(xDimension) || IsNearZero(xSpacing) || IsNearZero(zDimension) || IsNearZero(zSpacing)) return false;
  const int columns = qelvrml::CutToInt(xDimension);
  const int rows = qelvrml::CutToInt(zDimension);
  const std::int64_t count = std::int64_t{columns} * rows;
  const bool padded = count > static_cast<std::int64_t>(heights.GetSize());
  if (columns < 1 || rows < 1 || (padded && count > qelvrml::MaximumPaddedHeights)) return false;

  // As lines, every point stands in two of them.
  const auto points = static_cast<std::uint64_t>(count) * (solid ? 1U : 2U);
  const std::uint64_t objects = solid ? 1 : static_cast<std::uint64_t>(columns) + static_cast<std::uint64_t>(rows);
  if (!qelvrml::CanMake(*this, {.Objects = objects, .Solids = 1, .Points = points})) return false;

  const auto pointAt = [&](int i, int j) {
    return GetElevationGridPoint(i, j, heights, xDimension, xSpacing, zDimension, zSpacing);
  };
  const bool result = solid ? AddMesh(*this, columns, rows, pointAt) : AddLines(*this, columns, rows, pointAt);
  qelvrml::Record<CVRMLDictionaryElevationGrid>(*this, [&](auto& entry) {
    entry.SetSolid(solid);
    entry.SetHeight(heights);
    entry.SetXDimension(xDimension);
    entry.SetXSpacing(xSpacing);
    entry.SetZDimension(zDimension);
    entry.SetZSpacing(zSpacing);
  });
  return result;
}
