#pragma once

#include "Load.h"
#include "info/Census.h"

/// Prints for people all that can be told about a file.
void PrintReport(const LoadedFile& file, const Census& census);

/// "60 x 400 x 60", with so many significant digits; empty for an empty box.
std::string Extent(const brixBBox& box, int digits);
