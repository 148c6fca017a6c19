#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyline.h"

/// A face by its outline, which may be concave.
class QELVRML_EXPORT CKelPolygon : public CKelPolyline {
public:
  const char* GetClassName() const override { return "CKelPolygon"; }
  void Accept(brixObjectVisitor& visitor) const override;
  /// Triangles of the face, with its normal by Newell's method; segments of an outline of fewer than three points.
  /// Where lines of the outline cross, the triangles are a fan about its first point.
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;
};
