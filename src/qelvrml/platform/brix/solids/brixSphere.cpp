#include "qelvrml/platform/brix/solids/brixSphere.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/RevolvedSurface.h"

namespace {

using Triple = std::array<double, 3>;

// A parallel as small as this is the pole: half a turn in single precision ends behind it.
constexpr double PoleSine = 1.0e-6;

Triple Sum(const brixVector& a, double fa, const brixVector& b, double fb) {
  return {a.x * fa + b.x * fb, a.y * fa + b.y * fb, a.z * fa + b.z * fb};
}

struct SphereSteps {
  int Turn;
  int Polar;
};

// Within a triangle the distances of the two directions add up.
SphereSteps StepsOf(const brixSphere& sphere, double chordTolerance) {
  const double radius = sphere.GetRadius() * qelvrml::LargestStretch(sphere.GetXformation());
  const double half = qelvrml::ChordTolerance(radius, chordTolerance) / 2.0;
  const double turn = static_cast<double>(sphere.GetEndTurn()) - sphere.GetStartTurn();
  const double polar = static_cast<double>(sphere.GetEndPolar()) - sphere.GetStartPolar();
  return {std::max(3, qelvrml::ChordSteps(radius, turn, half)), std::max(2, qelvrml::ChordSteps(radius, polar, half))};
}

bool AreUnitAndUpright(const brixVector& a, const brixVector& b) {
  constexpr double Tolerance = 1.0e-3;
  return std::fabs(DotProduct(a, a) - 1.0) < Tolerance && std::fabs(DotProduct(b, b) - 1.0) < Tolerance &&
         std::fabs(DotProduct(a, b)) < Tolerance;
}

double FromPole(double polarAngle) { return std::min(polarAngle, std::numbers::pi - polarAngle); }

Triple Shifted(const brixFloatPoint& point, const Triple& by) {
  return {point.x + by[0], point.y + by[1], point.z + by[2]};
}

// A pole is one point to the bit, and a triangle is left out for each step round it. Of the other parallels the first
// or the last is the shortest; one that is almost a pole is too short for its points to stay apart.
std::optional<std::size_t> CountFromSteps(const brixSphere& sphere, double chordTolerance) {
  const qelvrml::Turn turn = {sphere.GetStartTurn(), sphere.GetEndTurn()};
  if (!qelvrml::IsModest(turn) || !AreUnitAndUpright(sphere.GetStartDirection(), sphere.GetPolarAxis()))
    return std::nullopt;
  const SphereSteps steps = StepsOf(sphere, chordTolerance);
  const double start = sphere.GetStartPolar();
  const double end = sphere.GetEndPolar();
  const double polarStep = (end - start) / steps.Polar;
  int poles = 0;
  double nearest = std::numbers::pi;  // of the parallels, to a pole
  for (const auto& [border, inward] : {std::pair(start, polarStep), std::pair(end, -polarStep)}) {
    const double fromPole = FromPole(border);
    const bool pole = std::fabs(fromPole) < 0.9 * PoleSine;  // so close by, sine and angle are the same
    poles += pole ? 1 : 0;
    nearest = std::min(nearest, pole ? FromPole(border + inward) : fromPole);
  }
  constexpr double LeastSine = 2.0 / std::numbers::pi;  // by the angle, up to 90 degrees
  const double roundTurn = LeastSine * nearest * qelvrml::LeastChord((turn.To - turn.From) / steps.Turn);
  const double upward = qelvrml::LeastChord(polarStep) - PoleSine;  // a pole lies a little off its parallel
  const double radius = std::fabs(sphere.GetRadius());
  const double reach = brixVector(sphere.GetCentre()).Length() + radius;
  if (!qelvrml::StayApart(radius * std::min(upward, roundTurn), reach, sphere.GetXformation())) return std::nullopt;
  return static_cast<std::size_t>(steps.Turn) * static_cast<std::size_t>(2 * steps.Polar - poles);
}

}  // namespace

void brixSphere::SetSphere(const brixFloatPoint& centre, const brixVector& startDirection, const brixVector& polarAxis,
                           float radius, float startTurn, float endTurn, float startPolar, float endPolar) {
  Centre = centre;
  StartDirection = startDirection;
  PolarAxis = polarAxis;
  Radius = radius;
  StartTurn = startTurn;
  EndTurn = endTurn;
  StartPolar = startPolar;
  EndPolar = endPolar;
}

void brixSphere::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

// The extent along an axis is reached where the sphere's normal, seen through the matrix, points along it, if that
// place is on the part, or else on the part's border.
brixBBox brixSphere::ComputeBBox() const {
  const brixVector side = CrossProduct(PolarAxis, StartDirection);
  const brixMatrix4x4& m = GetXformation();
  const qelvrml::Turn turn = {StartTurn, EndTurn};
  const qelvrml::Turn polar = {StartPolar, EndPolar};
  const double r = Radius;
  brixBBox box;
  if (qelvrml::IsWhole(turn) && polar.From <= 0.0 && polar.To >= std::numbers::pi) {
    const auto halfAxis = [&](const brixVector& direction) { return Sum(direction, r, direction, 0.0); };
    qelvrml::AddEllipsoid(box, Shifted(Centre, {}), {halfAxis(StartDirection), halfAxis(side), halfAxis(PolarAxis)}, m);
    return box;
  }
  for (const double angle : {polar.From, polar.To}) {
    const double ring = r * std::sin(angle);
    const Triple middle = Shifted(Centre, Sum(PolarAxis, r * std::cos(angle), PolarAxis, 0.0));
    qelvrml::AddArc(box, {middle, Sum(StartDirection, ring, side, 0.0), Sum(side, ring, side, 0.0)}, turn, m);
  }
  for (const double angle : {turn.From, turn.To}) {
    const Triple outward = Sum(StartDirection, r * std::cos(angle), side, r * std::sin(angle));
    qelvrml::AddArc(box, {Shifted(Centre, {}), Sum(PolarAxis, r, side, 0.0), outward}, polar, m);
  }
  for (std::size_t i = 0; i < 3; ++i) {
    const brixVector axis(m[0][i], m[1][i], m[2][i]);
    const double onStart = DotProduct(axis, StartDirection);
    const double onSide = DotProduct(axis, side);
    const double onPole = DotProduct(axis, PolarAxis);
    for (const double sign : {1.0, -1.0}) {
      const double turnAngle = std::atan2(sign * onSide, sign * onStart);
      const Triple outward = Sum(StartDirection, r * std::cos(turnAngle), side, r * std::sin(turnAngle));
      const double polarAngle = std::atan2(std::hypot(onStart, onSide), sign * onPole);
      if (!qelvrml::Contains(turn, turnAngle) || !qelvrml::Contains(polar, polarAngle)) continue;
      qelvrml::AddArc(box, {Shifted(Centre, {}), Sum(PolarAxis, r, side, 0.0), outward}, {polarAngle, polarAngle}, m);
    }
  }
  return box;
}

brixEReturn brixSphere::Evaluate(double chordTolerance, brixEvaluation& result) const {
  const brixVector side = CrossProduct(PolarAxis, StartDirection);
  const double turnSweep = static_cast<double>(EndTurn) - StartTurn;
  const double polarSweep = static_cast<double>(EndPolar) - StartPolar;
  const double outward = Radius < 0.0F ? -1.0 : 1.0;
  const auto surface = [&](double turn, double along) {
    const double angle = StartTurn + turn * turnSweep;
    // From the lower parallel up, so that triangles face outward; a radius below zero puts the lower one on top.
    const double polar = Radius < 0.0F ? StartPolar + along * polarSweep : EndPolar - along * polarSweep;
    const double sine = std::sin(polar);
    const double ring = std::fabs(sine) < PoleSine ? 0.0 : outward * sine;
    const Triple around = Sum(StartDirection, ring * std::cos(angle), side, ring * std::sin(angle));
    const Triple up = Sum(PolarAxis, outward * std::cos(polar), PolarAxis, 0.0);
    const double r = std::fabs(Radius);
    qelvrml::SurfacePoint point;
    point.Normal = {around[0] + up[0], around[1] + up[1], around[2] + up[2]};
    point.Position = Shifted(Centre, {r * point.Normal[0], r * point.Normal[1], r * point.Normal[2]});
    return point;
  };
  const SphereSteps steps = StepsOf(*this, chordTolerance);
  return qelvrml::EvaluateSurface(surface, steps.Turn, steps.Polar, GetXformation(), result);
}

std::size_t brixSphere::CountTriangles(double chordTolerance) const {
  const std::optional<std::size_t> count = CountFromSteps(*this, chordTolerance);
  return count ? *count : brixBaseRevSurface::CountTriangles(chordTolerance);
}
