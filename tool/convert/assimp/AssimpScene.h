#pragma once

#include <assimp/scene.h>

#include <memory>
#include <span>
#include <string>

#include "convert/Formats.h"
#include "scene/Scene.h"

/// A scene as assimp's exporters take it: a node for each group, and in it one for each part, with a mesh and a
/// material. `images` are the names of the files that the images of the scene are in.
std::unique_ptr<aiScene> MakeAssimpScene(const Scene& scene, std::span<const std::string> images);

/// A scene for formats without materials: a single mesh of the triangles and dots that the format holds, with the
/// colours of points if it has these.
std::unique_ptr<aiScene> MakeSingleMeshScene(const Scene& scene, const Format& format);
