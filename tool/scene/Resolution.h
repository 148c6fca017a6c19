#pragma once

#include "qelvrml/platform/brix/groups/brixBaseGroup.h"

/// How finely curved surfaces become triangles.
struct Resolution {
  /// Largest distance between a surface and its triangles, in units of the model; 0 to go by the share.
  double Tolerance = 0.0;
  /// That distance as a share of the radius of each surface.
  double ShareOfRadius = 0.01;
};

/// The tolerance to evaluate an object with. Surfaces of one radius and one scale get the same, so that their rims
/// meet.
double ToleranceFor(const brixBaseObject& object, const Resolution& resolution);

/// What is asked for or, where the share decides and gives more than 20 million triangles, a larger share.
Resolution Affordable(const brixBaseGroup& world, const Resolution& asked);
