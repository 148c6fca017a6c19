#include "qelvrml/platform/brix/brixMatrix4x4.h"

void brixMatrix4x4::SetIdentity() {
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) Rows[row][column] = row == column ? 1.0F : 0.0F;
  }
}

brixMatrix4x4 operator*(const brixMatrix4x4& a, const brixMatrix4x4& b) {
  brixMatrix4x4 product;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      double sum = 0.0;
      for (std::size_t k = 0; k < 4; ++k) sum += static_cast<double>(a[row][k]) * b[k][column];
      product[row][column] = static_cast<float>(sum);
    }
  }
  return product;
}
