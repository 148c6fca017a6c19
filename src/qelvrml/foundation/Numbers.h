#pragma once

#include <limits>

namespace qelvrml {

/// Sizes and intensities below this count as none. The value is 1.0e-6 in single precision, read as a double.
inline constexpr double NearZero = 1.0e-6F;

/// Not-a-number isn't near zero.
constexpr bool IsNearZero(double value) { return -NearZero < value && value < NearZero; }

/// The value cut to an integer towards zero; it saturates at the ends of `int`, and not-a-number gives 0.
constexpr int CutToInt(double value) {
  if (value != value) return 0;
  if (value >= static_cast<double>(std::numeric_limits<int>::max())) return std::numeric_limits<int>::max();
  if (value <= static_cast<double>(std::numeric_limits<int>::min())) return std::numeric_limits<int>::min();
  return static_cast<int>(value);
}

}  // namespace qelvrml
