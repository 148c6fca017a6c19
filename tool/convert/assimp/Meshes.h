#pragma once

#include <assimp/mesh.h>

#include <memory>

#include "scene/Shape.h"

/// A mesh of the triangles, segments or dots of a shape, with its normals and texture coordinates.
std::unique_ptr<aiMesh> MakeMesh(const Shape& form);
