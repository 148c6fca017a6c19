#pragma once

#include <vector>

#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixVector.h"

/// What an object looks like at a resolution, in world coordinates, for drawing and measuring.
struct brixEvaluation {
  std::vector<brixFloatPoint> Points;
  std::vector<brixVector> Normals;  ///< of a surface: one unit vector for each point; else empty
  std::vector<unsigned int>
      Triangles;  ///< three point indices each, counter-clockwise seen from where the normals point
  std::vector<unsigned int> Segments;  ///< two point indices each
};
