#pragma once

#include <filesystem>
#include <vector>

#include "convert/MadeFile.h"
#include "scene/Scene.h"

// glTF 2.0, with lengths in metres. A mesh for each part, which a node with the part's name places; a node for each
// group. Each writes a scene, which isn't empty, into the file `path`, and gives the files with that one last.

/// All in one file.
std::vector<MadeFile> MakeGlb(const Scene& scene, const std::filesystem::path& path);
/// Text, with a .bin file for the numbers and .png files for images beside it.
std::vector<MadeFile> MakeGltf(const Scene& scene, const std::filesystem::path& path);
