#pragma once

#include "qelvrml/foundation/VRMLExport.h"

class brixMatrix4x4;
class brixVector;

/// A point, in single precision.
class QELVRML_EXPORT brixFloatPoint {
public:
  /// Points are equal when each component differs by less than this.
  static constexpr float Tolerance = 1.0e-6F;

  /// The origin.
  constexpr brixFloatPoint() = default;
  /// The point (px, py, pz).
  constexpr brixFloatPoint(float px, float py, float pz) : x(px), y(py), z(pz) {}
  /// The point at the vector's components.
  explicit brixFloatPoint(const brixVector& vector);

  /// Divides each component. A divisor of 0 gives infinities or not-a-numbers.
  brixFloatPoint& operator/=(float divisor);
  /// Non-zero when the two coincide within the tolerance; never for a component that is not a number.
  int operator==(const brixFloatPoint& other) const;

  float x = 0.0F;  ///< along the X axis
  float y = 0.0F;  ///< along the Y axis
  float z = 0.0F;  ///< along the Z axis
};

/// Sum by components.
QELVRML_EXPORT brixFloatPoint operator+(const brixFloatPoint& a, const brixFloatPoint& b);
/// The point as a row vector times the matrix, translation included; the fourth column plays no part.
QELVRML_EXPORT brixFloatPoint operator*(const brixFloatPoint& point, const brixMatrix4x4& matrix);

/// Two numbers in single precision: a texture coordinate, or a 2-D scale or translation.
class brix2DFloatPoint {
public:
  /// Both numbers 0.
  constexpr brix2DFloatPoint() = default;
  /// The pair (px, py).
  constexpr brix2DFloatPoint(float px, float py) : x(px), y(py) {}

  float x = 0.0F;  ///< the first number: s of a texture coordinate
  float y = 0.0F;  ///< the second number: t of a texture coordinate
};
