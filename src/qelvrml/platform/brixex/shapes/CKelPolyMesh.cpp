#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"

#include <algorithm>

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/PointBlocks.h"
#include "qelvrml/platform/brixex/shapes/PointRange.h"

void CKelPolyMesh::SetPoints(const brixFloatPointArray& points, int rows, int columns, bool closedRows,
                             bool closedColumns) {
  Columns = std::max(columns, 0);
  Rows = Columns > 0 ? std::clamp(rows, 0, static_cast<int>(points.GetSize()) / Columns) : 0;
  Points = points;
  Points.Realloc(Rows * Columns, brixTrue);
  ClosedRows = closedRows;
  ClosedColumns = closedColumns;
}

void CKelPolyMesh::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

void CKelPolyMesh::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/) {
  qelvrml::Transform(Points.Edit(), matrix);
}

brixBBox CKelPolyMesh::ComputeBBox() const { return qelvrml::BoxOf(Points.View()); }

brixEReturn CKelPolyMesh::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  result.Points.assign(Points.View().begin(), Points.View().end());
  const auto at = [this](int row, int column) {
    return static_cast<unsigned>((row % Rows) * Columns + column % Columns);
  };
  for (int row = 0; row < CellRows(); ++row) {
    for (int column = 0; column < CellColumns(); ++column) {
      const unsigned a = at(row, column);
      const unsigned b = at(row, column + 1);
      const unsigned c = at(row + 1, column + 1);
      const unsigned d = at(row + 1, column);
      result.Triangles.insert(result.Triangles.end(), {a, b, c, a, c, d});
    }
  }
  qelvrml::ComputePointNormals(result);
  return result.Triangles.empty() ? brixEFailed : brixEOK;
}

std::size_t CKelPolyMesh::CountTriangles(double /*chordTolerance*/) const {
  return 2 * static_cast<std::size_t>(CellRows()) * static_cast<std::size_t>(CellColumns());
}
