#pragma once

#include "qelvrml/foundation/VRMLExport.h"

class brixFloatPoint;
class brixMatrix4x4;

/// A direction, in single precision.
class QELVRML_EXPORT brixVector {
public:
  /// The zero vector.
  constexpr brixVector() = default;
  /// The vector (vx, vy, vz).
  constexpr brixVector(float vx, float vy, float vz) : x(vx), y(vy), z(vz) {}
  /// From the origin to `point`.
  explicit brixVector(const brixFloatPoint& point);
  /// From `a` to `b`.
  brixVector(const brixFloatPoint& a, const brixFloatPoint& b);

  /// Multiplies each component.
  brixVector& operator*=(float factor);
  /// Makes the length 1; a zero vector stays as it is.
  void Normalize();
  /// Euclidean length.
  float Length() const;

  float x = 0.0F;  ///< along the X axis
  float y = 0.0F;  ///< along the Y axis
  float z = 0.0F;  ///< along the Z axis
};

/// Sum, difference and opposite, by components.
/// @{
QELVRML_EXPORT brixVector operator+(const brixVector& a, const brixVector& b);
QELVRML_EXPORT brixVector operator-(const brixVector& a, const brixVector& b);
QELVRML_EXPORT brixVector operator-(const brixVector& vector);
/// @}
/// The vector as a row vector times the matrix, without translation.
QELVRML_EXPORT brixVector operator*(const brixVector& vector, const brixMatrix4x4& matrix);
/// The vector `a` x `b`, at right angles to both by the right-hand rule; computed in double precision.
QELVRML_EXPORT brixVector CrossProduct(const brixVector& a, const brixVector& b);
/// Sum of the products of the components; computed in double precision.
QELVRML_EXPORT double DotProduct(const brixVector& a, const brixVector& b);
/// Absolute value.
QELVRML_EXPORT double brixFabs(double value);
