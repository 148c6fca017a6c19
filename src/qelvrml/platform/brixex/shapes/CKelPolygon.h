#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyline.h"

/// A face by its outline, which may be concave.
class QELVRML_EXPORT CKelPolygon : public CKelPolyline {
public:
  const char* GetClassName() const override { return "CKelPolygon"; }
  void Accept(brixObjectVisitor& visitor) const override;
  /// Triangles of the face; segments of an outline of fewer than three points.
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;
};
