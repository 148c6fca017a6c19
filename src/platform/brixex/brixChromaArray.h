#pragma once

#include "foundation/Export.h"
#include "platform/brix/brixArray1D.h"
#include "platform/brix/brixChroma.h"

/// An array of colours.
class QELVRML_EXPORT brixChromaArray : public brixArray1D<brixChroma> {
public:
  using brixArray1D<brixChroma>::brixArray1D;
};
