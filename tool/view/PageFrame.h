#pragma once

#include <string>

// The page around a scene, as a build makes it out of the folder page.

/// All that stands in front of the scene.
std::string PageStart();
/// All that stands behind it.
std::string PageEnd();
