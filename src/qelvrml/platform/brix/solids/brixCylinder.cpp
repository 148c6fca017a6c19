#include "qelvrml/platform/brix/solids/brixCylinder.h"

#include <algorithm>
#include <cmath>

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/RevolvedSurface.h"

namespace {

double TopRadius(const brixCylinder& cylinder) {
  return static_cast<double>(cylinder.GetRadius()) * cylinder.GetRatio();
}

int Steps(const brixCylinder& cylinder, double chordTolerance) {
  const double base = cylinder.GetRadius();
  const double radius =
      std::max(std::fabs(base), std::fabs(TopRadius(cylinder))) * qelvrml::LargestStretch(cylinder.GetXformation());
  const double angle = static_cast<double>(cylinder.GetEndAngle()) - cylinder.GetStartAngle();
  return qelvrml::ChordSteps(radius, angle, chordTolerance);
}

}  // namespace

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
  const double top = TopRadius(*this);
  brixBBox box;
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(Radius, 0.0, {}, StartDirection), turn, GetXformation());
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(top, Height, {}, StartDirection), turn, GetXformation());
  return box;
}

brixEReturn brixCylinder::Evaluate(double chordTolerance, brixEvaluation& result) const {
  const double start = std::atan2(StartDirection.y, StartDirection.x);
  const qelvrml::Surface side =
      qelvrml::FrustumSide(Radius, TopRadius(*this), Height, {start + StartAngle, start + EndAngle});
  return qelvrml::EvaluateSurface(side, Steps(*this, chordTolerance), 1, GetXformation(), result);
}

std::size_t brixCylinder::CountTriangles(double chordTolerance) const {
  const std::optional<std::size_t> count = qelvrml::CountFrustumTriangles(
      Radius, TopRadius(*this), Height, {StartAngle, EndAngle}, Steps(*this, chordTolerance), GetXformation());
  return count ? *count : brixBaseRevSurface::CountTriangles(chordTolerance);
}
