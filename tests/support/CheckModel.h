#pragma once

#include <string>
#include <vector>

#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"
#include "qelvrml/platform/brixex/CKelWorld.h"

/// The points that an object holds; none for a surface of revolution.
std::vector<brixFloatPoint> StoredPoints(const brixBaseObject& object);

/// What a model breaks of that which holds for every one: one material each, indices in range,
/// evaluations that refer to their own points, no empty or unnamed groups. Empty for a sound model.
std::string FindFault(const CKelWorld& world);
