#pragma once

#include "Load.h"
#include "measure/Measures.h"

/// Prints for people what a scene, its groups and its objects measure: a line for each, inner ones indented. Objects of
/// one class and one name that stand beside each other and aren't closed share a line.
void PrintMeasures(const LoadedFile& file, const MeasuredGroup& scene);
