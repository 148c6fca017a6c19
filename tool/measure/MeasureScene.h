#pragma once

#include "CommandLine.h"

/// Prints the measures of a scene, and gives the exit status.
int MeasureScene(const Arguments& arguments);
