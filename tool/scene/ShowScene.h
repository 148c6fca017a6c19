#pragma once

#include <functional>
#include <string>

#include "scene/Scene.h"

/// Puts a scene somewhere; gives what went wrong, empty for success.
using SceneWriter = std::function<std::string(const LoadedFile& file, const Scene& scene)>;

/// Loads a file and hands its scene to `write`, unless there is nothing to show. Says on standard error what went
/// wrong, and gives the exit status of the command.
int ShowScene(const std::string& path, const Resolution& resolution, const SceneWriter& write);
