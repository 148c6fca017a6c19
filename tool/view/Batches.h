#pragma once

#include <cstddef>
#include <vector>

#include "scene/Scene.h"

enum class ShapeKind { Triangles, Segments, Dots };

/// What parts that are drawn at once have in common. Colours are none of it.
struct BatchKind {
  ShapeKind Kind = ShapeKind::Triangles;
  bool Smooth = false;       ///< triangles have normals, else those of their planes
  bool Transparent = false;  ///< something shines through
  int Texture = Look::NoTexture;
  TextureWrapTypes WrapS = TextureWrapRepeat;
  TextureWrapTypes WrapT = TextureWrapRepeat;
};

/// Some order, for maps.
bool operator<(const BatchKind& a, const BatchKind& b);

/// Parts that are drawn at once.
struct Batch {
  BatchKind Kind;
  std::vector<std::size_t> Parts;  ///< indices of parts of the scene, in its order
};

std::vector<Batch> MakeBatches(const Scene& scene);
