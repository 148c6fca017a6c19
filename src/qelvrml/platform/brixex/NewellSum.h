#pragma once

#include <array>
#include <span>

#include "qelvrml/platform/brix/brixFloatPoint.h"

namespace qelvrml {

/// Along a polygon's normal, by Newell's method: each component is twice the area that the polygon shows along its
/// axis.
std::array<double, 3> NewellSum(std::span<const brixFloatPoint> points);

}  // namespace qelvrml
