#pragma once

#include "foundation/Export.h"
#include "platform/brix/brixArray1D.h"

/// An array of 32-bit signed integers.
class QELVRML_EXPORT brixIntArray : public brixArray1D<int> {
public:
  using brixArray1D<int>::brixArray1D;
};
