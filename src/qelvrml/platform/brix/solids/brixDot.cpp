#include "qelvrml/platform/brix/solids/brixDot.h"

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"

void brixDot::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

void brixDot::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/) { Point = Point * matrix; }

brixBBox brixDot::ComputeBBox() const {
  brixBBox box;
  box.Add(Point);
  return box;
}

brixEReturn brixDot::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  result.Points.push_back(Point);
  return brixEOK;
}

std::size_t brixDot::CountTriangles(double /*chordTolerance*/) const { return 0; }
