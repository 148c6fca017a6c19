#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"

/// A box along the axes; empty at first. A point with a component that is not a number doesn't enter it.
class QELVRML_EXPORT brixBBox {
public:
  void Add(const brixFloatPoint& point);
  void Add(const brixBBox& box);
  bool IsEmpty() const { return Empty; }
  /// The origin for an empty box.
  const brixFloatPoint& GetMinimum() const { return Minimum; }
  const brixFloatPoint& GetMaximum() const { return Maximum; }
  /// Largest extent along an axis; 0 for an empty box.
  float GetLargestDimension() const;

private:
  brixFloatPoint Minimum;
  brixFloatPoint Maximum;
  bool Empty = true;
};
