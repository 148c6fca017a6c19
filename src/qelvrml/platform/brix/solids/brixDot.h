#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

/// A single point.
class QELVRML_EXPORT brixDot : public brixBaseObject {
public:
  /// The point, in world coordinates; the origin at first.
  /// @{
  void SetDot(const brixFloatPoint& point) { Point = point; }
  const brixFloatPoint& GetDot() const { return Point; }
  /// @}

  const char* GetClassName() const override { return "brixDot"; }
  void Accept(brixObjectVisitor& visitor) const override;
  void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) override;
  brixBBox ComputeBBox() const override;
  /// One point, no triangles and no segments.
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  brixFloatPoint Point;
};
