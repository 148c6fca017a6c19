#pragma once

#include "foundation/Export.h"
#include "platform/brix/brixArray1D.h"

/// An array of truth values.
class QELVRML_EXPORT brixBoolArray : public brixArray1D<brixBool> {
public:
  using brixArray1D<brixBool>::brixArray1D;
};
