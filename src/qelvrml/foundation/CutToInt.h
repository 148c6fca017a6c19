#pragma once

#include <limits>

namespace qelvrml {

/// The value cut to an integer towards zero; it saturates at the ends of `int`, and not-a-number gives 0.
constexpr int CutToInt(double value) {
  if (value != value) return 0;
  if (value >= static_cast<double>(std::numeric_limits<int>::max())) return std::numeric_limits<int>::max();
  if (value <= static_cast<double>(std::numeric_limits<int>::min())) return std::numeric_limits<int>::min();
  return static_cast<int>(value);
}

}  // namespace qelvrml
