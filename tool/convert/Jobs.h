#pragma once

#include <string>
#include <vector>

/// A scene and the file that it is to be written to.
struct ConversionJob {
  std::string Scene;
  std::string File;
  std::string Problem;  ///< why it can't be tried; empty if it can
  int Status = 0;       ///< exit status of the command for that problem
};

/// The scenes of files and folders, with files of that ending in `folder` to write them to: those of a folder in the
/// same folders within it. Of two that would get one name the later one keeps its own ending: lamp.wrz.glb.
std::vector<ConversionJob> ListJobs(const std::vector<std::string>& paths, const std::string& folder,
                                    const std::string& ending);
