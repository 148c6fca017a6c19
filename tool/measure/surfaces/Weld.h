#pragma once

#include <span>
#include <vector>

#include "qelvrml/platform/brix/brixFloatPoint.h"

// Points that count as one have one number: the index of one of them. All coordinates are finite.

/// Numbers of points; those at the very same place have one, that of the first of them.
std::vector<unsigned> WeldEqual(std::span<const brixFloatPoint> points);

/// Gives one number to points that coincide but for rounding. `numbers` are what WeldEqual gave; `reach` has, for each
/// point, that of the points that it belongs to. Two points count as one if they are no farther apart along each axis
/// than a millionth of the larger reach, and never if they are ten times as far apart.
void WeldNear(std::span<const brixFloatPoint> points, std::span<const float> reach, std::vector<unsigned>& numbers);

/// What the rounding of some points goes by: their largest coordinate, without its sign. That of points far off is a
/// thousand times their extent, for more would make one of what are several.
float ReachOf(std::span<const brixFloatPoint> points);
