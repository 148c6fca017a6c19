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
#include "qelvrml/geometry/GridReader.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyline.h"

namespace {

using qelvrml::GridShape;
using qelvrml::NodeReader;

// As lines, every point stands in two of them.
qelvrml::Making PriceOf(const GridShape& shape, bool solid) {
  if (solid) return {.Objects = 1, .Solids = 1, .Points = shape.GetPointCount()};
  const auto lines = static_cast<std::uint64_t>(shape.GetColumns()) + static_cast<std::uint64_t>(shape.GetRows());
  return {.Objects = lines, .Solids = 1, .Points = shape.GetPointCount() * 2U};
}

bool PlaceMesh(CVRMLParser& parser, const GridShape& shape, const brixFloatPointArray& points) {
  std::unique_ptr<CKelPolyMesh> mesh(new (std::nothrow) CKelPolyMesh);
  if (!mesh) return false;
  mesh->SetPoints(points, shape.GetColumns(), shape.GetRows(), false, false);
  return parser.AddObjectToSeparator(mesh.release());
}

template <class PointAt>
bool AddMesh(CVRMLParser& parser, const GridShape& shape, PointAt pointAt) {
  brixFloatPointArray points(static_cast<int>(shape.GetPointCount()));
  auto place = points.Edit().begin();
  for (int i = 0; i < shape.GetColumns(); ++i) {
    for (int j = 0; j < shape.GetRows(); ++j) *place++ = pointAt(i, j);
  }
  parser.GetCurrentSeparator()->TransformPoints(points);
  return PlaceMesh(parser, shape, points);
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
  GridShape shape;
  qelvrml::GridReader grid(*this);
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenELEVATIONGRID});
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    switch (keyword) {
      case VRMLTokenHEIGHT:
        Tokenize();
        if (!grid.ReadHeights(shape) && ParseFloatArray(heights)) grid.Drop();
        break;
      case VRMLTokenSOLID: reader.TakeBoolean(solid); break;
      case VRMLTokenXDIMENSION: reader.TakeNumber(shape.XDimension); break;
      case VRMLTokenXSPACING: reader.TakeNumber(shape.XSpacing); break;
      case VRMLTokenZDIMENSION: reader.TakeNumber(shape.ZDimension); break;
      case VRMLTokenZSPACING: reader.TakeNumber(shape.ZSpacing); break;
      default: Tokenize(); break;
    }
  });
  if (grid.HasPoints() && solid && shape == grid.GetShape()) {
    return qelvrml::CanMake(*this, PriceOf(shape, solid)) && PlaceMesh(*this, shape, grid.GetPoints());
  }
  if (grid.HasPoints()) grid.ReadHeightsAgain(heights);
  return DefineElevationGrid(solid, heights, shape.XDimension, shape.XSpacing, shape.ZDimension, shape.ZSpacing);
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
  const GridShape shape = {xDimension, xSpacing, zDimension, zSpacing};
  if (!shape.IsSound(heights.GetSize())) return false;

  if (!qelvrml::CanMake(*this, PriceOf(shape, solid))) return false;

  const auto pointAt = [&](int i, int j) {
    return GetElevationGridPoint(i, j, heights, xDimension, xSpacing, zDimension, zSpacing);
  };
  const bool result =
      solid ? AddMesh(*this, shape, pointAt) : AddLines(*this, shape.GetColumns(), shape.GetRows(), pointAt);
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
