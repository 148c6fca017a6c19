#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/PointRange.h"

void CKelPolygon::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

brixEReturn CKelPolygon::Evaluate(double chordTolerance, brixEvaluation& result) const {
  if (GetPolyline().GetSize() < 3) return CKelPolyline::Evaluate(chordTolerance, result);
  result = {};
  qelvrml::AddPolygon(GetPolyline().View(), result);
  return brixEOK;
}

std::size_t CKelPolygon::CountTriangles(double /*chordTolerance*/) const {
  return qelvrml::CountPolygonTriangles(GetPolyline().View());
}
