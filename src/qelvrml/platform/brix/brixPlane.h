#pragma once

#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixVector.h"

/// A plane by a point on it and its normal.
class brixPlane {
public:
  /// Takes both as they are; the normal needs no unit length.
  brixPlane(const brixFloatPoint& point, const brixVector& normal) : Point(point), Normal(normal) {}
  /// A plain copy.
  /// @{
  brixPlane(const brixPlane&) = default;
  brixPlane& operator=(const brixPlane&) = default;
  /// @}
  virtual ~brixPlane() = default;

  /// Point and normal as they were given.
  /// @{
  const brixFloatPoint& GetPoint() const { return Point; }
  const brixVector& GetNormal() const { return Normal; }
  /// @}

private:
  brixFloatPoint Point;
  brixVector Normal;
};
