#pragma once

#include <cstdint>
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
  std::string Problem;  ///< why nothing was loaded; empty for a load that succeeded
  VRMLImageUnitsTypes Units = VRMLUnitsMeters;
  int Warning = 0;
  std::vector<CVRMLNote> Notes;
  std::uint64_t UnlistedNotes = 0;
  double Seconds = 0.0;  ///< time of the load
};

/// Loads a file, with a progress bar if standard error is a terminal.
LoadedFile LoadFile(const std::string& path);
/// Loads a file and shows nothing; several threads can do so at once.
LoadedFile LoadFileSilently(const std::string& path);

/// Name of a result, such as "VRMLLoadOK".
std::string ResultName(VRMLLoadResultTypes result);
/// Exit status of the command for a result.
int ExitStatus(VRMLLoadResultTypes result);
