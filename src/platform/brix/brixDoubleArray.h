#pragma once

#include "foundation/Export.h"
#include "platform/brix/brixArray1D.h"

/// An array of doubles.
class QELVRML_EXPORT brixDoubleArray : public brixArray1D<double> {
public:
  using brixArray1D<double>::brixArray1D;
};
