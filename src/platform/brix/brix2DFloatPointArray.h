#pragma once

#include "foundation/Export.h"
#include "platform/brix/brix2DFloatPoint.h"
#include "platform/brix/brixArray1D.h"

/// An array of 2-D points.
class QELVRML_EXPORT brix2DFloatPointArray : public brixArray1D<brix2DFloatPoint> {
public:
  using brixArray1D<brix2DFloatPoint>::brixArray1D;
};
