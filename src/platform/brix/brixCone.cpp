#include "platform/brix/brixCone.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/brix/RevolvedSurface.h"
#include "platform/brix/brixVector.h"

void brixCone::SetCone(float height, float bottomRadius, float topRadius) {
  Height = height;
  BottomRadius = bottomRadius;
  TopRadius = topRadius;
}

brixBBox brixCone::ComputeBBox() const {
  constexpr qelvrml::Turn Whole = {0.0, 2.0 * std::numbers::pi};
  const brixVector start(1.0F, 0.0F, 0.0F);
  brixBBox box;
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(BottomRadius, 0.0, {}, start), Whole, GetXformation());
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(TopRadius, Height, {}, start), Whole, GetXformation());
  return box;
}

brixEReturn brixCone::Evaluate(double chordTolerance, brixEvaluation& result) const {
  const double bottom = BottomRadius;
  const double top = TopRadius;
  const double height = Height;
  const auto surface = [=](double turn, double along) {
    const double angle = turn * 2.0 * std::numbers::pi;
    const double radius = bottom + (top - bottom) * along;
    qelvrml::SurfacePoint point;
    point.Position = {radius * std::cos(angle), radius * std::sin(angle), height * along};
    point.Normal = {height * std::cos(angle), height * std::sin(angle), bottom - top};
    return point;
  };
  const double radius = std::max(std::fabs(bottom), std::fabs(top)) * qelvrml::LargestStretch(GetXformation());
  const int steps = std::max(3, qelvrml::ChordSteps(radius, 2.0 * std::numbers::pi, chordTolerance));
  return qelvrml::EvaluateSurface(surface, steps, 1, GetXformation(), result);
}
