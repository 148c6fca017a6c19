#pragma once

#include <array>

#include "qelvrml/platform/brix/brixMatrix4x4.h"

namespace qelvrml {

/// Rows of three, in double precision.
using Matrix3x3 = std::array<std::array<double, 3>, 3>;

/// Cofactors of the upper left 3 x 3 part of a matrix. As a row vector times them, the cross product of two vectors
/// becomes the cross product of the two turned by the matrix: a normal stays one, and keeps the side from which
/// triangles are counter-clockwise, in a mirror too. Lengths change.
Matrix3x3 NormalMatrix(const brixMatrix4x4& matrix);

}  // namespace qelvrml
