#pragma once

#include <vector>

#include "qelvrml/platform/brix/brixArrays.h"

inline brixFloatPointArray Points(const std::vector<brixFloatPoint>& points) {
  brixFloatPointArray array;
  array.Assign(points);
  return array;
}

inline brixIntArray Ints(const std::vector<int>& values) {
  brixIntArray array;
  array.Assign(values);
  return array;
}
