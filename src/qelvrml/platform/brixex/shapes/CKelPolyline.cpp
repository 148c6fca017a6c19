#include "qelvrml/platform/brixex/shapes/CKelPolyline.h"

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/PointBlocks.h"

void CKelPolyline::SetPolyline(const brixFloatPointArray& points, bool closed) {
  Points = points;
  Closed = closed;
}

void CKelPolyline::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

void CKelPolyline::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/) {
  qelvrml::Transform(Points.Edit(), matrix);
}

brixBBox CKelPolyline::ComputeBBox() const { return qelvrml::BoxOf(Points.View()); }

brixEReturn CKelPolyline::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  result.Points.assign(Points.View().begin(), Points.View().end());
  for (unsigned i = 1; i < Points.GetSize(); ++i) result.Segments.insert(result.Segments.end(), {i - 1, i});
  if (Closed && Points.GetSize() > 2) result.Segments.insert(result.Segments.end(), {Points.GetSize() - 1, 0});
  return result.Segments.empty() ? brixEFailed : brixEOK;
}

std::size_t CKelPolyline::CountTriangles(double /*chordTolerance*/) const { return 0; }
