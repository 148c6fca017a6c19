#pragma once

#include "foundation/Export.h"
#include "platform/brix/brixArray1D.h"
#include "platform/brix/brixFloatPoint.h"

/// An array of points.
class QELVRML_EXPORT brixFloatPointArray : public brixArray1D<brixFloatPoint> {
public:
  using brixArray1D<brixFloatPoint>::brixArray1D;
};
