#include "measure/surfaces/SurfacePlacement.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace {

constexpr std::size_t DirectionCount = 128;

Vector3 RowOf(const brixMatrix4x4& matrix, std::size_t row) { return {matrix[row][0], matrix[row][1], matrix[row][2]}; }

struct FlatDirection {
  double X;
  double Y;
};

const std::array<FlatDirection, DirectionCount>& DirectionsRound() {
  static const std::array<FlatDirection, DirectionCount> Directions = [] {
    std::array<FlatDirection, DirectionCount> made{};
    for (std::size_t i = 0; i < DirectionCount; ++i) {
      const double angle = 2.0 * std::numbers::pi * static_cast<double>(i) / DirectionCount;
      made[i] = {std::cos(angle), std::sin(angle)};
    }
    return made;
  }();
  return Directions;
}

}  // namespace

SurfacePlacement::SurfacePlacement(const brixMatrix4x4& matrix) : Origin(RowOf(matrix, 3)), Axis(RowOf(matrix, 2)) {
  const Vector3 x = RowOf(matrix, 0);
  const Vector3 y = RowOf(matrix, 1);
  const double determinant = Dot(x, Cross(y, Axis));
  Volume = std::fabs(determinant);
  Areas = {Cross(y, Axis), Cross(Axis, x), Cross(x, y)};
  if (determinant >= 0.0) return;
  for (Vector3& area : Areas) area = -1.0 * area;
}

double SurfacePlacement::MeanArea(double away, double along) const {
  double sum = 0.0;
  for (const FlatDirection& direction : DirectionsRound()) {
    const Vector3 outward = (away * direction.X) * Areas[0] + (away * direction.Y) * Areas[1];
    sum += Length(outward + along * Areas[2]);
  }
  return sum / DirectionCount;
}
