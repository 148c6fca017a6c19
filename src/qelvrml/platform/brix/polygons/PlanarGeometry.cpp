#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace qelvrml {
namespace {

int SignOf(double value) { return (value > 0.0) - (value < 0.0); }

// The sum is kept as parts that don't overlap, each with the rounding error of the ones above it (Shewchuk's).
int SignOfSum(const std::array<double, 6>& terms) {
  std::array<double, 6> parts = {};
  for (std::size_t i = 0; i < terms.size(); ++i) {
    double sum = terms[i];
    for (std::size_t k = 0; k < i; ++k) {
      const double a = sum;
      const double b = parts[k];
      sum = a + b;
      const double rest = sum - a;
      parts[k] = (a - (sum - rest)) + (b - rest);
    }
    parts[i] = sum;
  }
  const auto largest = std::find_if(parts.rbegin(), parts.rend(), [](double part) { return part != 0.0; });
  return largest == parts.rend() ? 0 : SignOf(*largest);
}

}  // namespace

PlanarRing ToRing(const brixFloatPointArray& points) {
  PlanarRing ring;
  ring.reserve(points.GetSize());
  for (const brixFloatPoint& point : points.View()) ring.push_back({point.x, point.y});
  return ring;
}

bool IsFinite(const PlanarRing& ring) {
  return std::all_of(ring.begin(), ring.end(),
                     [](const PlanarPoint& p) { return std::isfinite(p[0]) && std::isfinite(p[1]); });
}

int SideOf(const PlanarPoint& a, const PlanarPoint& b, const PlanarPoint& point) {
  const double left = (a[0] - point[0]) * (b[1] - point[1]);
  const double right = (a[1] - point[1]) * (b[0] - point[0]);
  const double area = left - right;
  // Above what the rounding of the seven operations can be.
  constexpr double error = 4.0 * std::numeric_limits<double>::epsilon();
  if (std::fabs(area) > error * (std::fabs(left) + std::fabs(right))) return SignOf(area);
  // The products of two floats are exact.
  return SignOfSum({a[0] * b[1], -a[1] * b[0], b[0] * point[1], -b[1] * point[0], point[0] * a[1], -point[1] * a[0]});
}

}  // namespace qelvrml
