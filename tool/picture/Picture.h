#pragma once

#include "CommandLine.h"

/// Writes a picture of a scene, and gives the exit status.
int MakePicture(const Arguments& arguments);
