#pragma once

#include <algorithm>
#include <cmath>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"

/// A box along the axes; empty at first.
class QELVRML_EXPORT brixBBox {
public:
  /// Grows the box to hold the point. One with a component that is not a number doesn't enter it.
  void Add(const brixFloatPoint& point) {
    if (std::isnan(point.x) || std::isnan(point.y) || std::isnan(point.z)) return;
    if (Empty) Minimum = Maximum = point;
    Empty = false;
    Minimum = {std::min(Minimum.x, point.x), std::min(Minimum.y, point.y), std::min(Minimum.z, point.z)};
    Maximum = {std::max(Maximum.x, point.x), std::max(Maximum.y, point.y), std::max(Maximum.z, point.z)};
  }
  /// Grows the box to hold another one; an empty one changes nothing.
  void Add(const brixBBox& box);
  /// Whether nothing has entered the box.
  bool IsEmpty() const { return Empty; }
  /// The corners with the least and the largest components; the origin for an empty box.
  /// @{
  const brixFloatPoint& GetMinimum() const { return Minimum; }
  const brixFloatPoint& GetMaximum() const { return Maximum; }
  /// @}
  /// Largest extent along an axis; 0 for an empty box.
  float GetLargestDimension() const;

private:
  brixFloatPoint Minimum;
  brixFloatPoint Maximum;
  bool Empty = true;
};
