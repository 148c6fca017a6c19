#include "qelvrml/platform/brix/brixBBox.h"

#include <algorithm>

void brixBBox::Add(const brixBBox& box) {
  if (box.Empty) return;
  Add(box.Minimum);
  Add(box.Maximum);
}

float brixBBox::GetLargestDimension() const {
  return std::max({Maximum.x - Minimum.x, Maximum.y - Minimum.y, Maximum.z - Minimum.z});
}
