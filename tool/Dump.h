#pragma once

#include "Load.h"

/// Prints the model as JSON on standard output.
void Dump(const LoadedFile& file);
