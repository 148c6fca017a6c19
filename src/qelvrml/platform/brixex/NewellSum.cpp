#include "qelvrml/platform/brixex/NewellSum.h"

namespace qelvrml {

std::array<double, 3> NewellSum(std::span<const brixFloatPoint> points) {
  std::array<double, 3> sum{};
  for (std::size_t i = 0; i < points.size(); ++i) {
    const brixFloatPoint& p = points[i];
    const brixFloatPoint& q = points[i + 1 < points.size() ? i + 1 : 0];
    sum[0] += (static_cast<double>(p.y) - q.y) * (static_cast<double>(p.z) + q.z);
    sum[1] += (static_cast<double>(p.z) - q.z) * (static_cast<double>(p.x) + q.x);
    sum[2] += (static_cast<double>(p.x) - q.x) * (static_cast<double>(p.y) + q.y);
  }
  return sum;
}

}  // namespace qelvrml
