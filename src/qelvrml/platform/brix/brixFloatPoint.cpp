#include <cmath>

#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"
#include "qelvrml/platform/brix/brixVector.h"

namespace {

bool Near(float a, float b) { return std::fabs(a - b) < brixFloatPoint::Tolerance; }

// One component of a row vector times a matrix; summed in double precision, so that order and size matter little.
float Column(double x, double y, double z, double w, const brixMatrix4x4& m, std::size_t column) {
  return static_cast<float>(x * m[0][column] + y * m[1][column] + z * m[2][column] + w * m[3][column]);
}

}  // namespace

brixFloatPoint::brixFloatPoint(const brixVector& vector) : x(vector.x), y(vector.y), z(vector.z) {}

brixFloatPoint& brixFloatPoint::operator/=(float divisor) {
  x /= divisor;
  y /= divisor;
  z /= divisor;
  return *this;
}

int brixFloatPoint::operator==(const brixFloatPoint& other) const {
  return Near(x, other.x) && Near(y, other.y) && Near(z, other.z) ? 1 : 0;
}

brixFloatPoint operator+(const brixFloatPoint& a, const brixFloatPoint& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }

brixFloatPoint operator*(const brixFloatPoint& p, const brixMatrix4x4& m) {
  return {Column(p.x, p.y, p.z, 1.0, m, 0), Column(p.x, p.y, p.z, 1.0, m, 1), Column(p.x, p.y, p.z, 1.0, m, 2)};
}

brixVector::brixVector(const brixFloatPoint& point) : x(point.x), y(point.y), z(point.z) {}
brixVector::brixVector(const brixFloatPoint& a, const brixFloatPoint& b) : x(b.x - a.x), y(b.y - a.y), z(b.z - a.z) {}

brixVector& brixVector::operator*=(float factor) {
  x *= factor;
  y *= factor;
  z *= factor;
  return *this;
}

void brixVector::Normalize() {
  const double length = std::sqrt(DotProduct(*this, *this));
  if (length == 0.0) return;
  x = static_cast<float>(x / length);
  y = static_cast<float>(y / length);
  z = static_cast<float>(z / length);
}

float brixVector::Length() const { return static_cast<float>(std::sqrt(DotProduct(*this, *this))); }

brixVector operator+(const brixVector& a, const brixVector& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
brixVector operator-(const brixVector& a, const brixVector& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
brixVector operator-(const brixVector& vector) { return {-vector.x, -vector.y, -vector.z}; }

brixVector operator*(const brixVector& v, const brixMatrix4x4& m) {
  return {Column(v.x, v.y, v.z, 0.0, m, 0), Column(v.x, v.y, v.z, 0.0, m, 1), Column(v.x, v.y, v.z, 0.0, m, 2)};
}

brixVector CrossProduct(const brixVector& a, const brixVector& b) {
  const auto minor = [](double p, double q, double r, double s) { return static_cast<float>(p * q - r * s); };
  return {minor(a.y, b.z, a.z, b.y), minor(a.z, b.x, a.x, b.z), minor(a.x, b.y, a.y, b.x)};
}

double DotProduct(const brixVector& a, const brixVector& b) {
  return static_cast<double>(a.x) * b.x + static_cast<double>(a.y) * b.y + static_cast<double>(a.z) * b.z;
}

double brixFabs(double value) { return std::fabs(value); }
