#include "qelvrml/platform/brix/solids/RevolvedSurface.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "qelvrml/platform/brix/NormalMatrix.h"
#include "qelvrml/platform/brix/brixVector.h"

namespace qelvrml {
namespace {

constexpr int MostSteps = 4096;

using Triple = std::array<double, 3>;

Triple Placed(const Triple& p, const brixMatrix4x4& m, double w) {
  Triple result{};
  for (std::size_t i = 0; i < 3; ++i) result[i] = p[0] * m[0][i] + p[1] * m[1][i] + p[2] * m[2][i] + w * m[3][i];
  return result;
}

brixFloatPoint ToPoint(const Triple& p) {
  return {static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2])};
}

void AddReach(brixBBox& box, const Triple& centre, const Triple& reach) {
  box.Add(ToPoint({centre[0] - reach[0], centre[1] - reach[1], centre[2] - reach[2]}));
  box.Add(ToPoint({centre[0] + reach[0], centre[1] + reach[1], centre[2] + reach[2]}));
}

Triple At(const Arc& arc, double angle) {
  Triple result{};
  for (std::size_t i = 0; i < 3; ++i)
    result[i] = arc.Centre[i] + arc.U[i] * std::cos(angle) + arc.V[i] * std::sin(angle);
  return result;
}

// Along an axis an ellipse reaches as far as the point (U, V) is from the origin.
void AddEllipse(brixBBox& box, const Arc& placed) {
  Triple reach{};
  for (std::size_t i = 0; i < 3; ++i) reach[i] = std::sqrt(placed.U[i] * placed.U[i] + placed.V[i] * placed.V[i]);
  AddReach(box, placed.Centre, reach);
}

double Determinant(const brixMatrix4x4& m, const Matrix3x3& cofactors) {
  return m[0][0] * cofactors[0][0] + m[0][1] * cofactors[0][1] + m[0][2] * cofactors[0][2];
}

bool Coincide(const brixFloatPoint& a, const brixFloatPoint& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

void AddTriangle(brixEvaluation& result, unsigned a, unsigned b, unsigned c) {
  const auto& p = result.Points;
  if (Coincide(p[a], p[b]) || Coincide(p[b], p[c]) || Coincide(p[c], p[a])) return;
  result.Triangles.insert(result.Triangles.end(), {a, b, c});
}

}  // namespace

bool IsWhole(const Turn& turn) { return turn.To - turn.From >= FullCircle.To; }

void AddEllipsoid(brixBBox& box, const Triple& centre, const std::array<Triple, 3>& axes, const brixMatrix4x4& matrix) {
  Triple reach{};
  for (const Triple& axis : axes) {
    const Triple placed = Placed(axis, matrix, 0.0);
    for (std::size_t i = 0; i < 3; ++i) reach[i] += placed[i] * placed[i];
  }
  for (double& r : reach) r = std::sqrt(r);
  AddReach(box, Placed(centre, matrix, 1.0), reach);
}

bool Contains(const Turn& turn, double angle) {
  const double whole = FullCircle.To;
  return turn.From + std::fmod(std::fmod(angle - turn.From, whole) + whole, whole) <= turn.To;
}

void AddArc(brixBBox& box, const Arc& arc, const Turn& turn, const brixMatrix4x4& matrix) {
  const Arc placed = {Placed(arc.Centre, matrix, 1.0), Placed(arc.U, matrix, 0.0), Placed(arc.V, matrix, 0.0)};
  if (IsWhole(turn)) {
    AddEllipse(box, placed);
    return;
  }
  box.Add(ToPoint(At(placed, turn.From)));
  box.Add(ToPoint(At(placed, turn.To)));
  for (std::size_t i = 0; i < 3; ++i) {
    // Along an axis the arc is R * cos(t - extreme), so its ends are there and half a turn away.
    const double extreme = std::atan2(placed.V[i], placed.U[i]);
    for (const double angle : {extreme, extreme + std::numbers::pi}) {
      if (Contains(turn, angle)) box.Add(ToPoint(At(placed, angle)));
    }
  }
}

Arc CircleAboutZ(double radius, double z, const brixFloatPoint& centre, const brixVector& start) {
  Arc arc;
  arc.Centre = {centre.x, centre.y, centre.z + z};
  arc.U = {radius * start.x, radius * start.y, 0.0};
  arc.V = {-radius * start.y, radius * start.x, 0.0};
  return arc;
}

// Sizes below zero give the same solid upside down or turned by half a turn, facing outward like any other.
Surface FrustumSide(double bottomRadius, double topRadius, double height, const Turn& turn) {
  const double base = std::min(height, 0.0);
  if (height < 0.0) std::swap(bottomRadius, topRadius);
  const double opposite = bottomRadius + topRadius < 0.0 ? -1.0 : 1.0;
  return [=, rise = std::fabs(height), bottom = opposite * bottomRadius, top = opposite * topRadius](double around,
                                                                                                     double up) {
    const double angle = turn.From + around * (turn.To - turn.From);
    const double x = opposite * std::cos(angle);
    const double y = opposite * std::sin(angle);
    const double radius = bottom + (top - bottom) * up;
    return SurfacePoint{{radius * x, radius * y, base + rise * up}, {rise * x, rise * y, bottom - top}};
  };
}

double ChordTolerance(double radius, double chordTolerance) {
  constexpr double DefaultShare = 0.01;
  return chordTolerance > 0.0 ? chordTolerance : DefaultShare * std::fabs(radius);
}

int ChordSteps(double radius, double angle, double chordTolerance) {
  const double r = std::fabs(radius);
  const double tolerance = ChordTolerance(radius, chordTolerance);
  const double step = tolerance < r ? 2.0 * std::acos(1.0 - tolerance / r) : std::numbers::pi;
  const double largest = std::min(step, std::numbers::pi / 2.0);
  const double steps = std::ceil(std::fabs(angle) / largest);
  return steps >= 1.0 ? static_cast<int>(std::min<double>(steps, MostSteps)) : 1;
}

// Gershgorin's bound on the eigenvalues of the matrix times its transpose.
double LargestStretch(const brixMatrix4x4& matrix) {
  double largest = 0.0;
  for (std::size_t row = 0; row < 3; ++row) {
    double sum = 0.0;
    for (std::size_t other = 0; other < 3; ++other) {
      double product = 0.0;
      for (std::size_t k = 0; k < 3; ++k) product += static_cast<double>(matrix[row][k]) * matrix[other][k];
      sum += std::fabs(product);
    }
    largest = std::max(largest, sum);
  }
  return std::sqrt(largest);
}

brixEReturn EvaluateSurface(const Surface& surface, int turnSteps, int alongSteps, const brixMatrix4x4& matrix,
                            brixEvaluation& result) {
  result = {};
  const Matrix3x3 cofactors = NormalMatrix(matrix);
  const bool mirrored = Determinant(matrix, cofactors) < 0.0;
  const double outward = mirrored ? -1.0 : 1.0;
  for (int i = 0; i <= turnSteps; ++i) {
    for (int j = 0; j <= alongSteps; ++j) {
      const SurfacePoint local = surface(static_cast<double>(i) / turnSteps, static_cast<double>(j) / alongSteps);
      result.Points.push_back(ToPoint(Placed(local.Position, matrix, 1.0)));
      Triple n{};
      for (std::size_t c = 0; c < 3; ++c) {
        for (std::size_t r = 0; r < 3; ++r) n[c] += outward * local.Normal[r] * cofactors[r][c];
      }
      const double length = std::hypot(n[0], n[1], n[2]);
      const double factor = length > 0.0 ? 1.0 / length : 0.0;
      result.Normals.emplace_back(static_cast<float>(n[0] * factor), static_cast<float>(n[1] * factor),
                                  static_cast<float>(n[2] * factor));
    }
  }
  const auto stride = static_cast<unsigned>(alongSteps + 1);
  for (unsigned i = 0; i < static_cast<unsigned>(turnSteps); ++i) {
    for (unsigned j = 0; j < static_cast<unsigned>(alongSteps); ++j) {
      const unsigned corner = i * stride + j;
      const unsigned first = mirrored ? corner + 1 : corner + stride;
      const unsigned second = mirrored ? corner + stride : corner + 1;
      AddTriangle(result, corner, first, corner + stride + 1);
      AddTriangle(result, corner, corner + stride + 1, second);
    }
  }
  return result.Triangles.empty() ? brixEFailed : brixEOK;
}

bool IsModest(const Turn& turn) {
  constexpr double Largest = 1000.0;  // radians; MostSteps are still less than a quarter of a turn each
  return std::fabs(turn.From) < Largest && std::fabs(turn.To) < Largest;
}

double LeastChord(double angle) {
  constexpr double Share = 0.9;  // a chord of 90 degrees is sqrt(2), and shorter ones are longer by their angles
  return Share * std::fabs(angle);
}

// The smallest stretch is the determinant by the two others. Conditions are such that not-a-number gives false.
bool StayApart(double distance, double reach, const brixMatrix4x4& matrix) {
  constexpr double Rounding = 0x1p-20;  // four times what two points can come closer by, as a part of their coordinates
  const double largest = LargestStretch(matrix);
  const double smallest = std::fabs(Determinant(matrix, NormalMatrix(matrix))) / (largest * largest);
  const double farthest = reach * largest + std::fabs(matrix[3][0]) + std::fabs(matrix[3][1]) + std::fabs(matrix[3][2]);
  return std::isfinite(smallest) && farthest < std::numeric_limits<float>::max() &&
         distance * smallest > Rounding * farthest + std::numeric_limits<float>::min();
}

// A circle without a radius is one point to the bit, and a triangle is left out for each step along it.
std::optional<std::size_t> CountFrustumTriangles(double bottomRadius, double topRadius, double height, const Turn& turn,
                                                 int steps, const brixMatrix4x4& matrix) {
  const double bottom = std::fabs(bottomRadius);
  const double top = std::fabs(topRadius);
  const double chord = LeastChord((turn.To - turn.From) / steps);
  double distance = std::hypot(height, bottom - top);
  int circles = 0;
  for (const double radius : {bottom, top}) {
    if (radius == 0.0) continue;
    ++circles;
    distance = std::min(distance, chord * radius);
  }
  const double reach = std::hypot(height, std::max(bottom, top));
  if (!IsModest(turn) || !StayApart(distance, reach, matrix)) return std::nullopt;
  return static_cast<std::size_t>(circles) * static_cast<std::size_t>(steps);
}

}  // namespace qelvrml
