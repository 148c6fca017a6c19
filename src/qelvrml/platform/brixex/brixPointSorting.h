#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"

/// Fills `order` with a permutation of the point indices in which coinciding points are neighbours: points that
/// coincide, also through others between them, form clusters; clusters stand in the order of their smallest index, and
/// indices rise within a cluster. Points coincide as brixFloatPoint compares them. The points don't move. Takes
/// near-linear time. False, and no change, for no points. Raises std::bad_alloc.
QELVRML_EXPORT bool SortPointArrayForProximity(const brixFloatPointArray& points, brixIntArray& order);
