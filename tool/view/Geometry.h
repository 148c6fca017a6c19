#pragma once

#include <vector>

#include "scene/Scene.h"
#include "view/Batches.h"
#include "view/PageColumns.h"

/// A place near all points of a scene, chosen so that no digit is lost where points are given from it.
brixFloatPoint OriginOf(const Scene& scene);

/// Adds the columns of what is drawn, batch after batch and in each the parts in the order of the scene: "x", "y" and
/// "z" of the points, "normalX" and "normalY" of those that have normals, "s" and "t" of those that have a texture,
/// and "indices", counted from the batch's first point. And those of the parts, in the order of the scene:
/// "partBatch", "partPoints", "partIndices", and their boxes from "partMinimumX" to "partMaximumZ".
///
/// Points and boxes are given from `origin`.
void AddGeometry(const Scene& scene, const std::vector<Batch>& batches, const brixFloatPoint& origin,
                 PageColumns& columns);
