#pragma once

#include "qelvrml/foundation/VRMLExport.h"

class brixMatrix4x4;
class brixVector;

/// A point, in single precision.
class QELVRML_EXPORT brixFloatPoint {
public:
  /// Points are equal when each component differs by less than this.
  static constexpr float Tolerance = 1.0e-6F;

  constexpr brixFloatPoint() = default;
  constexpr brixFloatPoint(float px, float py, float pz) : x(px), y(py), z(pz) {}
  /// The point at the vector's components.
  explicit brixFloatPoint(const brixVector& vector);

  brixFloatPoint& operator/=(float divisor);
  /// Non-zero when the two coincide within the tolerance.
  int operator==(const brixFloatPoint& other) const;

  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;
};

QELVRML_EXPORT brixFloatPoint operator+(const brixFloatPoint& a, const brixFloatPoint& b);
/// The point as a row vector times the matrix, translation included; the fourth column plays no part.
QELVRML_EXPORT brixFloatPoint operator*(const brixFloatPoint& point, const brixMatrix4x4& matrix);

/// Two numbers in single precision: a texture coordinate, or a 2-D scale or translation.
class brix2DFloatPoint {
public:
  constexpr brix2DFloatPoint() = default;
  constexpr brix2DFloatPoint(float px, float py) : x(px), y(py) {}

  float x = 0.0F;
  float y = 0.0F;
};
