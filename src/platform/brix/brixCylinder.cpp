#include "platform/brix/brixCylinder.h"

#include <algorithm>
#include <cmath>

#include "platform/brix/RevolvedSurface.h"

void brixCylinder::SetCylinder(float height, float radius, float ratio, const brixVector& startDirection,
                               float startAngle, float endAngle) {
  Height = height;
  Radius = radius;
  Ratio = ratio;
  StartDirection = startDirection;
  StartAngle = startAngle;
  EndAngle = endAngle;
}

brixBBox brixCylinder::ComputeBBox() const {
  const qelvrml::Turn turn = {StartAngle, EndAngle};
  const double top = static_cast<double>(Radius) * Ratio;
  brixBBox box;
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(Radius, 0.0, {}, StartDirection), turn, GetXformation());
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(top, Height, {}, StartDirection), turn, GetXformation());
  return box;
}

brixEReturn brixCylinder::Evaluate(double chordTolerance, brixEvaluation& result) const {
  const double bottom = Radius;
  const double top = bottom * Ratio;
  const double height = Height;
  const double start = std::atan2(StartDirection.y, StartDirection.x) + StartAngle;
  const double sweep = static_cast<double>(EndAngle) - StartAngle;
  const auto surface = [=](double turn, double along) {
    const double angle = start + turn * sweep;
    const double radius = bottom + (top - bottom) * along;
    qelvrml::SurfacePoint point;
    point.Position = {radius * std::cos(angle), radius * std::sin(angle), height * along};
    point.Normal = {height * std::cos(angle), height * std::sin(angle), bottom - top};
    return point;
  };
  const double radius = std::max(std::fabs(bottom), std::fabs(top)) * qelvrml::LargestStretch(GetXformation());
  return qelvrml::EvaluateSurface(surface, qelvrml::ChordSteps(radius, sweep, chordTolerance), 1, GetXformation(),
                                  result);
}
