#pragma once

#include <cstdint>
#include <vector>

#include "picture/Camera.h"
#include "scene/Shape.h"

/// Triangles of narrow shapes that face the eye.
struct Strokes {
  std::vector<Vector3> Places;         ///< as the eye sees them
  std::vector<std::uint32_t> Corners;  ///< of triangles, three each
};

/// Draws the segments of a shape as lines, or its points as dots, of the same width in all of the picture. They lie a
/// little nearer to the eye than the shape does, so that they are seen on a surface that they lie in.
Strokes DrawStrokes(const Shape& form, const Camera& camera, const PictureSize& size);
