#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

/// A surface over a grid of points.
class QELVRML_EXPORT CKelPolyMesh : public brixBaseObject {
public:
  /// `points` holds the grid row after row; points beyond rows x columns don't count. The grid is cut to the rows that
  /// the points suffice for. The flags say whether the last row, or column, is joined to the first one. Shares the
  /// storage of the points.
  virtual void SetPoints(const brixFloatPointArray& points, int rows, int columns, bool closedRows, bool closedColumns);
  /// The grid as it was set, after the cut: rows x columns points, in world coordinates.
  /// @{
  const brixFloatPointArray& GetPoints() const { return Points; }
  int GetRows() const { return Rows; }
  int GetColumns() const { return Columns; }
  bool GetClosedRows() const { return ClosedRows; }
  bool GetClosedColumns() const { return ClosedColumns; }
  /// @}

  const char* GetClassName() const override { return "CKelPolyMesh"; }
  void Accept(brixObjectVisitor& visitor) const override;
  void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) override;
  brixBBox ComputeBBox() const override;
  /// Two triangles for each cell of the grid, also where they have no area. They face where the step to the next column
  /// times the step to the next row, as a cross product, points. A point's normal is that of the triangles around it,
  /// weighted by their area.
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  int CellRows() const { return CellsAlong(Rows, ClosedRows); }
  int CellColumns() const { return CellsAlong(Columns, ClosedColumns); }
  static int CellsAlong(int points, bool closed) { return closed || points == 0 ? points : points - 1; }

  brixFloatPointArray Points;  ///< exactly the grid
  int Rows = 0;
  int Columns = 0;
  bool ClosedRows = false;
  bool ClosedColumns = false;
};
