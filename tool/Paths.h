#pragma once

#include <string>
#include <vector>

/// A file to look at, or a folder that gives none and why.
struct FoundPath {
  std::string Path;
  std::string Problem;
  int Status = 0;  ///< exit status of the command for that problem
};

/// The VRML files in a folder and the folders in it, by their names and in their order; links to folders aren't
/// followed. Of anything but a folder, just that.
std::vector<FoundPath> FindFiles(const std::string& path);

/// The name of a scene without the ending that says so, else without its last one: "desk" for "models/desk.wrl.gz".
std::string SceneStem(const std::string& path);
