#pragma once

#include <string>

#include "scene/Scene.h"

/// A page that shows a scene and needs nothing else. What comes from the file stands in it as data that no browser
/// takes for HTML or script.
std::string MakePage(const LoadedFile& file, const Scene& scene);
