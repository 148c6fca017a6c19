#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"

/// Fills `order` with a permutation of the point indices in which coinciding points are neighbours: points that
/// coincide, also through others between them, form clusters; clusters stand in the order of their smallest index, and
/// indices rise within a cluster. The points don't move. Takes near-linear time. False for no points.
QELVRML_EXPORT bool SortPointArrayForProximity(const brixFloatPointArray& points, brixIntArray& order);
