#pragma once

#include <memory>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brixex/shapes/CKelTriangleStrip.h"

/// Several strips of triangles that follow one another through common points.
class QELVRML_EXPORT CKelMultipleTriangleStrip : public CKelTriangleStrip {
public:
  /// `counts` holds the number of points of each strip; what goes beyond the points is cut, a negative count is 0.
  virtual void SetStrips(const brixFloatPointArray& points, const brixVectorArray& normals, const brixIntArray& counts);
  /// The same in coordinates that other strips may lie in too; not null.
  void ShareStrips(std::shared_ptr<const qelvrml::StripCoordinates> coordinates, const brixIntArray& counts);
  /// Number of points of each strip, within the points that there are.
  const brixIntArray& GetPointCounts() const { return Counts; }

  const char* GetClassName() const override { return "CKelMultipleTriangleStrip"; }
  void Accept(brixObjectVisitor& visitor) const override;
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  brixIntArray Counts;
};
