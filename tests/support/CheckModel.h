#pragma once

#include <string>

#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"
#include "qelvrml/platform/brixex/CKelWorld.h"

/// Name of an object's class; empty for an object of no known one.
std::string ClassOf(const brixBaseObject& object);

/// The points that an object holds; none for one of another form.
const brixFloatPointArray& StoredPoints(const brixBaseObject& object);

/// What a model breaks of that which holds for every one: known classes, one material each, indices in range,
/// evaluations that refer to their own points, no empty or unnamed groups. Empty for a sound model.
std::string FindFault(const CKelWorld& world);
