#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brix/groups/brixEvaluation.h"

namespace qelvrml {

/// Adds a polygon, which may be concave and need not be flat, with points of its own and its plane's normal. A polygon
/// that crosses itself becomes a fan. Nothing is added for fewer than three points.
void AddPolygon(std::span<const brixFloatPoint> outline, brixEvaluation& result);

/// How many triangles AddPolygon adds.
std::size_t CountPolygonTriangles(std::span<const brixFloatPoint> outline);

/// Fills the normals with the mean of the normals of the triangles around each point, weighted by their area.
void ComputePointNormals(brixEvaluation& result);

}  // namespace qelvrml
