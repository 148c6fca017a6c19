#pragma once

#include "Load.h"

/// Prints for people what a file holds.
void PrintInfo(const LoadedFile& file);
