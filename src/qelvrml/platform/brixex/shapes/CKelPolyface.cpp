#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"

#include <vector>

#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/PointRange.h"

void CKelPolyface::SetPoints(const brixFloatPointArray& points, const brixIntArray& faces, bool compress) {
  Points = points;
  Faces = faces;
  Compress = compress;
}

void CKelPolyface::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

void CKelPolyface::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) {
  ApplyMatrixToGeometry(matrix, updateBox, true);
}

void CKelPolyface::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/, bool /*recompute*/) {
  qelvrml::Transform(Points.Edit(), matrix);
}

brixBBox CKelPolyface::ComputeBBox() const { return qelvrml::BoxOf(Points.View()); }

brixEReturn CKelPolyface::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  std::vector<brixFloatPoint> outline;
  for (const brixRun& face : brixRunList(Faces)) {
    outline.clear();
    for (const int index : face.Indices) {
      if (index >= 0 && static_cast<unsigned>(index) < Points.GetSize())
        outline.push_back(Points.View()[static_cast<std::size_t>(index)]);
    }
    qelvrml::AddPolygon(outline, result);
  }
  return result.Triangles.empty() ? brixEFailed : brixEOK;
}
