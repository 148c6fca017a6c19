#include "qelvrml/platform/brix/solids/brixDisk.h"

#include <algorithm>
#include <cmath>

#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/RevolvedSurface.h"

namespace {

int Steps(const brixDisk& disk, double chordTolerance) {
  const double radius = std::max(std::fabs(disk.GetInnerRadius()), std::fabs(disk.GetOuterRadius())) *
                        qelvrml::LargestStretch(disk.GetXformation());
  return std::max(3, qelvrml::ChordSteps(radius, qelvrml::FullCircle.To, chordTolerance));
}

}  // namespace

void brixDisk::SetDisk(float innerRadius, float outerRadius, const brixMatrix4x4& placement, brixBool filled) {
  InnerRadius = innerRadius;
  OuterRadius = outerRadius;
  SetXformation(placement);
  Filled = filled;
}

void brixDisk::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

brixBBox brixDisk::ComputeBBox() const {
  const brixVector start(1.0F, 0.0F, 0.0F);
  brixBBox box;
  const float radius = std::max(std::fabs(InnerRadius), std::fabs(OuterRadius));
  qelvrml::AddArc(box, qelvrml::CircleAboutZ(radius, 0.0, {}, start), qelvrml::FullCircle, GetXformation());
  return box;
}

brixEReturn brixDisk::Evaluate(double chordTolerance, brixEvaluation& result) const {
  const double inner = std::min(std::fabs(InnerRadius), std::fabs(OuterRadius));
  const double outer = std::max(std::fabs(InnerRadius), std::fabs(OuterRadius));
  const auto surface = [=](double turn, double along) {
    const double angle = turn * qelvrml::FullCircle.To;
    const double radius = outer + (inner - outer) * along;
    return qelvrml::SurfacePoint{{radius * std::cos(angle), radius * std::sin(angle), 0.0}, {0.0, 0.0, 1.0}};
  };
  const int steps = Steps(*this, chordTolerance);
  const brixEReturn evaluated = qelvrml::EvaluateSurface(surface, steps, 1, GetXformation(), result);
  if (Filled == brixTrue) return evaluated;

  result.Triangles.clear();
  result.Normals.clear();
  for (unsigned i = 0; i < static_cast<unsigned>(steps); ++i) {
    result.Segments.insert(result.Segments.end(), {2 * i, 2 * i + 2});
  }
  return brixEOK;
}

std::size_t brixDisk::CountTriangles(double chordTolerance) const {
  if (Filled != brixTrue) return 0;
  const std::optional<std::size_t> count = qelvrml::CountFrustumTriangles(
      InnerRadius, OuterRadius, 0.0, qelvrml::FullCircle, Steps(*this, chordTolerance), GetXformation());
  return count ? *count : brixBaseRevSurface::CountTriangles(chordTolerance);
}
