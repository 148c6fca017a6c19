#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/CKelWorld.h"

/// A file that was loaded, or wasn't.
struct LoadedFile {
  std::string Path;
  std::unique_ptr<CKelWorld> World;
  VRMLLoadResultTypes Result = VRMLLoadFailed;
  VRMLImageUnitsTypes Units = VRMLUnitsMeters;
  int Warning = 0;
  std::vector<std::string> MissingFiles;  ///< asked for by the scene and not found
  double Seconds = 0.0;                   ///< time of the load
};

/// Loads a file, with a progress bar if standard error is a terminal.
LoadedFile LoadFile(const std::string& path);

/// Name of a result, such as "VRMLLoadOK".
std::string ResultName(VRMLLoadResultTypes result);
/// Name of a unit, such as "centimeters".
std::string UnitsName(VRMLImageUnitsTypes units);
/// A sentence that says why nothing was loaded; empty for a load that succeeded.
std::string WhatWentWrong(const LoadedFile& file);
/// Exit status of the command for a result.
int ExitStatus(VRMLLoadResultTypes result);
/// A text of the library as UTF-8; what can't be converted is replaced.
std::string ToUtf8(const char16_t* text);
