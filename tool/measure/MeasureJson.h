#pragma once

#include "Load.h"
#include "measure/Measures.h"

/// Prints the measures of a scene, its groups and its objects as JSON:
///
///   {"file", "result", "units", "scene": {measures, "objects": [...], "groups": [...]}, "notes": [...]}
///
/// An object has "type", "name" and its measures, a group "name", its measures, "objects" and "groups". Measures are
///
///   "box"               {"min", "max", "size"}, or null where there is nothing to see
///   "area"              of all faces
///   "volume"            of what is closed; null for anything else, and where inside and outside can't be told
///   "closed"            whether there are bodies, and no open surfaces
///   "bodies"            how many closed surfaces there are
///   "bodiesVolume"      of those bodies that have one, also where other surfaces are open
///   "openSurfaces"      how many surfaces there are that aren't closed
///   "openEdges"         edges of one face
///   "nonManifoldEdges"  edges of more than two faces
///   "points", "faces"   as info counts them; of surfaces of revolution those of their triangles
///
/// Where nothing was loaded there is "problem" behind "result".
void PrintMeasureJson(const LoadedFile& file, const MeasuredGroup& scene);
