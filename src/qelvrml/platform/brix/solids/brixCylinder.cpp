#include "qelvrml/platform/brix/solids/brixCylinder.h"

#include <algorithm>
#include <cmath>

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/RevolvedSurface.h"

void brixCylinder::SetCylinder(float height, float radius, float ratio, const brixVector& startDirection,
                               float startAngle, float endAngle) {
  Height = height;
  Radius = radius;
  Ratio = ratio;
  StartDirection = startDirection;
  StartAngle = startAngle;
  EndAngle = endAngle;
}

void brixCylinder::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

brixBBox brixCylinder::ComputeBBox() const {
  const qelvrml::Turn turn = {StartAngle, EndAngle};
  const double top = static_cast<double>(Radius) * Ratio;
  brixBBox box;
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(Radius, 0.0, {}, StartDirection), turn, GetXformation());
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(top, Height, {}, StartDirection), turn, GetXformation());
  return box;
}

brixEReturn brixCylinder::Evaluate(double chordTolerance, brixEvaluation& result) const {
  const double top = static_cast<double>(Radius) * Ratio;
  const double start = std::atan2(StartDirection.y, StartDirection.x);
  const double radius =
      std::max(std::fabs(static_cast<double>(Radius)), std::fabs(top)) * qelvrml::LargestStretch(GetXformation());
  const int steps = qelvrml::ChordSteps(radius, static_cast<double>(EndAngle) - StartAngle, chordTolerance);
  const qelvrml::Surface side = qelvrml::FrustumSide(Radius, top, Height, {start + StartAngle, start + EndAngle});
  return qelvrml::EvaluateSurface(side, steps, 1, GetXformation(), result);
}
