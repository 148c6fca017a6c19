#pragma once

#include <array>
#include <cstddef>

#include "qelvrml/foundation/VRMLExport.h"

/// A matrix of 4 rows of 4 floats. Points are row vectors: in `p * A * B` the matrix A acts first; the translation
/// stands in the last row.
class QELVRML_EXPORT brixMatrix4x4 {
public:
  /// The identity.
  brixMatrix4x4() { SetIdentity(); }

  /// Makes this the identity.
  void SetIdentity();

  /// Row of the matrix, so that `m[row][column]` is an element; both indices from 0 to 3, and not checked.
  /// @{
  std::array<float, 4>& operator[](std::size_t row) { return Rows[row]; }
  const std::array<float, 4>& operator[](std::size_t row) const { return Rows[row]; }
  /// @}

private:
  std::array<std::array<float, 4>, 4> Rows{};
};

/// Matrix product; the left factor acts first. Sums are made in double precision.
QELVRML_EXPORT brixMatrix4x4 operator*(const brixMatrix4x4& a, const brixMatrix4x4& b);
