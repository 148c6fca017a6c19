#pragma once

#include <span>
#include <vector>

#include "qelvrml/platform/brix/groups/brixBaseObject.h"
#include "qelvrml/platform/brixex/textures/CKelTextureCoordinate.h"

/// Texture coordinates, without the transformation of the mapping, for the points that the object evaluates to. Empty
/// where the object isn't one that takes them.
std::vector<brix2DFloatPoint> CornerCoordinates(const brixBaseObject& object, const CKelTextureCoordinate& mapping,
                                                std::span<const brixFloatPoint> points);
