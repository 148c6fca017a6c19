#pragma once

#include "platform/brix/brixFloatPointArray.h"
#include "platform/brix/brixIntArray.h"

/// Triangles of a polygon with holes.
struct brixComplexOutput {
  brixFloatPointArray Points;
  brixIntArray Corners;  ///< three indices into Points for each triangle, counter-clockwise seen from +Z
  int TriangleCount = 0;
};
