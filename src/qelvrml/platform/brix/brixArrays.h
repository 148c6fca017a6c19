#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArray1D.h"
#include "qelvrml/platform/brix/brixBool.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixMaterial.h"
#include "qelvrml/platform/brix/brixVector.h"

/// An array of 2-D points.
class QELVRML_EXPORT brix2DFloatPointArray : public brixArray1D<brix2DFloatPoint> {
public:
  using brixArray1D<brix2DFloatPoint>::brixArray1D;
};

/// An array of truth values.
class QELVRML_EXPORT brixBoolArray : public brixArray1D<brixBool> {
public:
  using brixArray1D<brixBool>::brixArray1D;
};

/// An array of doubles.
class QELVRML_EXPORT brixDoubleArray : public brixArray1D<double> {
public:
  using brixArray1D<double>::brixArray1D;
};

/// An array of points.
class QELVRML_EXPORT brixFloatPointArray : public brixArray1D<brixFloatPoint> {
public:
  using brixArray1D<brixFloatPoint>::brixArray1D;
};

/// An array of 32-bit signed integers.
class QELVRML_EXPORT brixIntArray : public brixArray1D<int> {
public:
  using brixArray1D<int>::brixArray1D;
};

/// An array of vectors.
class QELVRML_EXPORT brixVectorArray : public brixArray1D<brixVector> {
public:
  using brixArray1D<brixVector>::brixArray1D;
};

/// An array of colours.
class QELVRML_EXPORT brixChromaArray : public brixArray1D<brixChroma> {
public:
  using brixArray1D<brixChroma>::brixArray1D;
};
