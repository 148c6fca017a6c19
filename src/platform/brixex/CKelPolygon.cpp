#include "platform/brixex/CKelPolygon.h"

#include "platform/brixex/PointRange.h"

brixEReturn CKelPolygon::Evaluate(double chordTolerance, brixEvaluation& result) const {
  if (GetPolyline().GetSize() < 3) return CKelPolyline::Evaluate(chordTolerance, result);
  result = {};
  qelvrml::AddPolygon(GetPolyline().View(), result);
  return brixEOK;
}
