#pragma once

#include <vector>

#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixVector.h"

/// What an object looks like at a resolution, in world coordinates, for drawing and measuring.
struct brixEvaluation {
  /// What the indices below refer to, from 0 on. Not all need be in use.
  std::vector<brixFloatPoint> Points;
  /// Of a surface a unit vector for each point, zero where there is none; else empty.
  std::vector<brixVector> Normals;
  /// Three point indices each, counter-clockwise seen from where the normals point.
  std::vector<unsigned int> Triangles;
  /// Two point indices each.
  std::vector<unsigned int> Segments;
};
