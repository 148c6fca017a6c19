#include "qelvrml/platform/brix/brixBBox.h"

#include <algorithm>
#include <cmath>

void brixBBox::Add(const brixFloatPoint& point) {
  if (std::isnan(point.x) || std::isnan(point.y) || std::isnan(point.z)) return;
  if (Empty) {
    Minimum = Maximum = point;
    Empty = false;
    return;
  }
  Minimum = {std::min(Minimum.x, point.x), std::min(Minimum.y, point.y), std::min(Minimum.z, point.z)};
  Maximum = {std::max(Maximum.x, point.x), std::max(Maximum.y, point.y), std::max(Maximum.z, point.z)};
}

void brixBBox::Add(const brixBBox& box) {
  if (box.Empty) return;
  Add(box.Minimum);
  Add(box.Maximum);
}

float brixBBox::GetLargestDimension() const {
  return std::max({Maximum.x - Minimum.x, Maximum.y - Minimum.y, Maximum.z - Minimum.z});
}
