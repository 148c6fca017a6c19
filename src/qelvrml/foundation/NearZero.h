#pragma once

namespace qelvrml {

/// Sizes and intensities below this count as none. The value is 1.0e-6 in single precision, read as a double.
inline constexpr double NearZero = 1.0e-6F;

/// Not-a-number isn't near zero.
constexpr bool IsNearZero(double value) { return -NearZero < value && value < NearZero; }

}  // namespace qelvrml
