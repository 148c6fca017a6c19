#pragma once

#include "CommandLine.h"

/// Writes scenes in another format, and gives the exit status.
int Convert(const Arguments& arguments);
