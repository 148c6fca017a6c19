#pragma once

#include "foundation/Export.h"
#include "platform/brix/brixArray1D.h"
#include "platform/brix/brixVector.h"

/// An array of vectors.
class QELVRML_EXPORT brixVectorArray : public brixArray1D<brixVector> {
public:
  using brixArray1D<brixVector>::brixArray1D;
};
