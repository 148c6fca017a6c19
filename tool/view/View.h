#pragma once

#include "CommandLine.h"

/// Writes a page that shows a scene, and gives the exit status.
int View(const Arguments& arguments);
