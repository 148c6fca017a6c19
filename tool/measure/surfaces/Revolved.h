#pragma once

#include <optional>
#include <vector>

#include "measure/surfaces/Sheet.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

/// A whole sphere, or the whole side of a cone or a cylinder, or a disk, as it is placed.
///
/// All is by formula. A rim is one edge, whose corners stand in for its place, size and plane: they are in front of and
/// behind its middle. So rims join that are the same circle, wherever their triangles would begin.
struct RevolvedSurface {
  double Area = 0.0;
  JoinedSurface Form;
  std::vector<brixFloatPoint> Corners;  ///< finite
};

/// Empty for any other object, and for parts of surfaces.
std::optional<RevolvedSurface> MakeRevolvedSurface(const brixBaseObject& object);
