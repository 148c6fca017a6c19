#pragma once

#include <vector>

#include "qelvrml/platform/brix/polygons/PlanarGeometry.h"

namespace qelvrml {

/// Triangulates an outline with holes, whose coordinates are values of float. Three indices for each triangle,
/// counter-clockwise, into the points of the outline and the holes laid end to end. Empty when there is no
/// triangulation, as where lines cross.
std::vector<unsigned> TriangulatePolygon(const PlanarPolygon& polygon);

}  // namespace qelvrml
