#pragma once

#include <filesystem>
#include <vector>

#include "convert/Formats.h"
#include "convert/MadeFile.h"
#include "scene/Scene.h"

/// The files of a scene, which isn't empty, in a format that assimp writes; the one for `path` is the last. Raises an
/// exception where it can't be written.
std::vector<MadeFile> MakeByAssimp(const Scene& scene, const Format& format, const std::filesystem::path& path);
