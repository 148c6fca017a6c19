#include "qelvrml/platform/brixex/brixMatrixFunctions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

#include "qelvrml/platform/brixex/NewellSum.h"

namespace {

constexpr double OppositeSine = 1.0e-12;  // what rounding leaves of the sine between opposite directions

using Triple = std::array<double, 3>;
using Square = std::array<std::array<double, 4>, 4>;

Triple Cross(const Triple& a, const Triple& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Dot(const Triple& a, const Triple& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

std::optional<Triple> Unit(const Triple& v) {
  const double length = std::sqrt(Dot(v, v));
  if (length == 0.0 || !std::isfinite(length)) return std::nullopt;
  return Triple{v[0] / length, v[1] / length, v[2] / length};
}

std::optional<Triple> Unit(const brixVector& v) { return Unit(Triple{v.x, v.y, v.z}); }

// Rodrigues' rotation formula, transposed for row vectors.
brixMatrix4x4 Rotation(const Triple& axis, double cosine, double sine) {
  const Triple s = {axis[0] * sine, axis[1] * sine, axis[2] * sine};
  const double rest = 1.0 - cosine;
  const std::array<Triple, 3> skew = {{{cosine, s[2], -s[1]}, {-s[2], cosine, s[0]}, {s[1], -s[0], cosine}}};
  brixMatrix4x4 m;
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      m[row][column] = static_cast<float>(rest * axis[row] * axis[column] + skew[row][column]);
    }
  }
  return m;
}

Triple PerpendicularTo(const Triple& direction) {
  std::size_t least = 0;
  for (std::size_t i = 1; i < 3; ++i) {
    if (std::fabs(direction[i]) < std::fabs(direction[least])) least = i;
  }
  Triple axis{};
  axis[least] = 1.0;
  for (std::size_t i = 0; i < 3; ++i) axis[i] -= direction[least] * direction[i];
  return Unit(axis).value_or(Triple{1.0, 0.0, 0.0});
}

// Gauss-Jordan elimination with pivots by size; false for a singular matrix.
bool Invert(Square& m, Square& inverse) {
  for (std::size_t column = 0; column < 4; ++column) {
    std::size_t pivot = column;
    for (std::size_t row = column + 1; row < 4; ++row) {
      if (std::fabs(m[row][column]) > std::fabs(m[pivot][column])) pivot = row;
    }
    const double value = m[pivot][column];
    if (value == 0.0 || !std::isfinite(value)) return false;
    std::swap(m[pivot], m[column]);
    std::swap(inverse[pivot], inverse[column]);
    for (std::size_t k = 0; k < 4; ++k) {
      m[column][k] /= value;
      inverse[column][k] /= value;
    }
    for (std::size_t row = 0; row < 4; ++row) {
      if (row == column) continue;
      const double factor = m[row][column];
      for (std::size_t k = 0; k < 4; ++k) {
        m[row][k] -= factor * m[column][k];
        inverse[row][k] -= factor * inverse[column][k];
      }
    }
  }
  return true;
}

}  // namespace

brixMatrix4x4 GetDisplacementMatrix(const brixFloatPoint& d) {
  brixMatrix4x4 m;
  m[3] = {d.x, d.y, d.z, 1.0F};
  return m;
}

brixMatrix4x4 GetScaleMatrix(const brixFloatPoint& s) {
  brixMatrix4x4 m;
  m[0][0] = s.x;
  m[1][1] = s.y;
  m[2][2] = s.z;
  return m;
}

brixMatrix4x4 GetInverseMatrix(const brixMatrix4x4& m) {
  Square left{};
  Square right{};
  for (std::size_t row = 0; row < 4; ++row) {
    std::copy(m[row].begin(), m[row].end(), left[row].begin());
    right[row][row] = 1.0;
  }
  brixMatrix4x4 inverse;
  if (!Invert(left, right)) return inverse;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) inverse[row][column] = static_cast<float>(right[row][column]);
  }
  return inverse;
}

brixMatrix4x4 CreateRotationMatrixForNormalAngle(const brixVector& axis, double angle) {
  const std::optional<Triple> unit = Unit(axis);
  return unit ? Rotation(*unit, std::cos(angle), std::sin(angle)) : brixMatrix4x4();
}

brixMatrix4x4 CreateRotationMatrixForVectors(const brixVector& from, const brixVector& to, const brixVector* axis) {
  const std::optional<Triple> a = Unit(from);
  const std::optional<Triple> b = Unit(to);
  if (!a || !b) return {};
  const Triple cross = Cross(*a, *b);
  const double cosine = Dot(*a, *b);
  const double sine = std::sqrt(Dot(cross, cross));
  if (cosine < 0.0 && sine < OppositeSine) {
    const std::optional<Triple> given = axis ? Unit(*axis) : std::nullopt;
    return Rotation(given ? *given : PerpendicularTo(*a), -1.0, 0.0);
  }
  const std::optional<Triple> unit = Unit(cross);
  return unit ? Rotation(*unit, cosine, sine) : brixMatrix4x4();
}

brixMatrix4x4 CreateMatrixFromPlane(const brixPlane& plane) {
  return CreateRotationMatrixForVectors({0.0F, 0.0F, 1.0F}, plane.GetNormal(), nullptr) *
         GetDisplacementMatrix(plane.GetPoint());
}

bool IsIdentityMatrix(const brixMatrix4x4& m) {
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      const float expected = row == column ? 1.0F : 0.0F;
      if (!(std::fabs(m[row][column] - expected) <= brixFloatPoint::Tolerance)) return false;
    }
  }
  return true;
}

double CalculateAngleBetweenVectors(const brixVector& a, const brixVector& b) {
  const Triple u = {a.x, a.y, a.z};
  const Triple v = {b.x, b.y, b.z};
  const Triple cross = Cross(u, v);
  return RadiansToDegrees(std::atan2(std::sqrt(Dot(cross, cross)), Dot(u, v)));
}

brixVector ComputeNormalForPoints(const brixFloatPointArray& points) { return ComputeNormalForPoints(points.View()); }

brixVector ComputeNormalForPoints(std::span<const brixFloatPoint> points) {
  const Triple normal = Unit(qelvrml::NewellSum(points)).value_or(Triple{});
  return {static_cast<float>(normal[0]), static_cast<float>(normal[1]), static_cast<float>(normal[2])};
}

double RadiansToDegrees(double radians) { return radians * 180.0 / std::numbers::pi; }
