#include "qelvrml/platform/brix/solids/brixCone.h"

#include <algorithm>
#include <cmath>

#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/RevolvedSurface.h"

namespace {

int Steps(const brixCone& cone, double chordTolerance) {
  const double radius = std::max(std::fabs(cone.GetBottomRadius()), std::fabs(cone.GetTopRadius())) *
                        qelvrml::LargestStretch(cone.GetXformation());
  return std::max(3, qelvrml::ChordSteps(radius, qelvrml::FullCircle.To, chordTolerance));
}

}  // namespace

void brixCone::SetCone(float height, float bottomRadius, float topRadius) {
  Height = height;
  BottomRadius = bottomRadius;
  TopRadius = topRadius;
}

void brixCone::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

brixBBox brixCone::ComputeBBox() const {
  const brixVector start(1.0F, 0.0F, 0.0F);
  brixBBox box;
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(BottomRadius, 0.0, {}, start), qelvrml::FullCircle, GetXformation());
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(TopRadius, Height, {}, start), qelvrml::FullCircle, GetXformation());
  return box;
}

brixEReturn brixCone::Evaluate(double chordTolerance, brixEvaluation& result) const {
  const qelvrml::Surface side = qelvrml::FrustumSide(BottomRadius, TopRadius, Height, qelvrml::FullCircle);
  return qelvrml::EvaluateSurface(side, Steps(*this, chordTolerance), 1, GetXformation(), result);
}

std::size_t brixCone::CountTriangles(double chordTolerance) const {
  const std::optional<std::size_t> count = qelvrml::CountFrustumTriangles(
      BottomRadius, TopRadius, Height, qelvrml::FullCircle, Steps(*this, chordTolerance), GetXformation());
  return count ? *count : brixBaseRevSurface::CountTriangles(chordTolerance);
}
