#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

/// A line through points.
class QELVRML_EXPORT CKelPolyline : public brixBaseObject {
public:
  /// Shares the storage of the points; `closed` joins the last of three points or more to the first.
  virtual void SetPolyline(const brixFloatPointArray& points, bool closed);
  /// What was set, with the points in world coordinates.
  /// @{
  const brixFloatPointArray& GetPolyline() const { return Points; }
  bool GetClosed() const { return Closed; }
  /// @}

  const char* GetClassName() const override { return "CKelPolyline"; }
  void Accept(brixObjectVisitor& visitor) const override;
  void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) override;
  brixBBox ComputeBBox() const override;
  /// A segment from each point to the next one; no triangles and no normals.
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  brixFloatPointArray Points;
  bool Closed = false;
};
