#include "qelvrml/platform/brix/NormalMatrix.h"

namespace qelvrml {

Matrix3x3 NormalMatrix(const brixMatrix4x4& matrix) {
  Matrix3x3 cofactors{};
  for (std::size_t r = 0; r < 3; ++r) {
    const auto& a = matrix[(r + 1) % 3];
    const auto& b = matrix[(r + 2) % 3];
    for (std::size_t c = 0; c < 3; ++c) {
      const std::size_t c1 = (c + 1) % 3;
      const std::size_t c2 = (c + 2) % 3;
      cofactors[r][c] = static_cast<double>(a[c1]) * b[c2] - static_cast<double>(a[c2]) * b[c1];
    }
  }
  return cofactors;
}

}  // namespace qelvrml
