#pragma once

#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixVector.h"

/// A plane by a point on it and its normal.
class brixPlane {
public:
  brixPlane(const brixFloatPoint& point, const brixVector& normal) : Point(point), Normal(normal) {}
  brixPlane(const brixPlane&) = default;
  brixPlane& operator=(const brixPlane&) = default;
  virtual ~brixPlane() = default;

  const brixFloatPoint& GetPoint() const { return Point; }
  const brixVector& GetNormal() const { return Normal; }

private:
  brixFloatPoint Point;
  brixVector Normal;
};
