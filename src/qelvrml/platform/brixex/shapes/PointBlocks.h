#pragma once

#include <span>

#include "qelvrml/platform/brix/brixBBox.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"

// Loops over many points.

namespace qelvrml {

/// Each point becomes the point times the matrix.
void Transform(std::span<brixFloatPoint> points, const brixMatrix4x4& matrix);

brixBBox BoxOf(std::span<const brixFloatPoint> points);

}  // namespace qelvrml
