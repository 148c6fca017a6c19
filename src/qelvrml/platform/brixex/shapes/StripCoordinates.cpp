#include "qelvrml/platform/brixex/shapes/StripCoordinates.h"

#include <array>
#include <bit>
#include <cstdint>

#include "qelvrml/platform/brix/NormalMatrix.h"
#include "qelvrml/platform/brixex/shapes/PointBlocks.h"

namespace qelvrml {
namespace {

void TurnNormals(std::span<brixVector> normals, const brixMatrix4x4& matrix) {
  const Matrix3x3 m = NormalMatrix(matrix);
  for (brixVector& n : normals) {
    const auto component = [&](std::size_t i) {
      return static_cast<float>(n.x * m[0][i] + n.y * m[1][i] + n.z * m[2][i]);
    };
    n = {component(0), component(1), component(2)};
    n.Normalize();
  }
}

// Bit for bit: 0 and -0 don't give the same points.
bool AreSame(const brixMatrix4x4& a, const brixMatrix4x4& b) {
  using Bits = std::array<std::uint32_t, 4>;
  for (std::size_t row = 0; row < 4; ++row) {
    if (std::bit_cast<Bits>(a[row]) != std::bit_cast<Bits>(b[row])) return false;
  }
  return true;
}

}  // namespace

StripCoordinates::StripCoordinates(const brixFloatPointArray& points, const brixVectorArray& normals)
    : Points(points), Normals(normals), Box(BoxOf(points.View())) {}

std::shared_ptr<const StripCoordinates> StripCoordinates::FindMoved(const brixMatrix4x4& matrix) const {
  const std::lock_guard lock(Moving);
  return AreSame(matrix, Matrix) ? Moved.lock() : nullptr;
}

std::shared_ptr<const StripCoordinates> StripCoordinates::Move(const brixMatrix4x4& matrix) const {
  if (std::shared_ptr<const StripCoordinates> moved = FindMoved(matrix)) return moved;
  brixFloatPointArray points = Points;
  brixVectorArray normals = Normals;
  Transform(points.Edit(), matrix);
  TurnNormals(normals.Edit(), matrix);
  auto moved = std::make_shared<const StripCoordinates>(points, normals);
  const std::lock_guard lock(Moving);
  Matrix = matrix;
  Moved = moved;
  return moved;
}

}  // namespace qelvrml
