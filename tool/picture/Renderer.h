#pragma once

#include <array>
#include <vector>

#include "picture/Drawing.h"
#include "picture/Gl.h"
#include "picture/Shaders.h"
#include "picture/Textures.h"

/// Draws pictures with OpenGL, whose context has to be current as long as this object lives.
class Renderer {
public:
  Renderer(const Drawing& drawing, const std::vector<Image>& images);

  /// A picture as wide and high as the camera's. Larger ones are drawn in tiles.
  Image Draw(const Camera& camera, const PictureOptions& options) const;

private:
  void DrawTile(const Camera& camera, const Tile& tile) const;
  // Of textures only pixels of this opacity at least.
  void DrawBatches(const std::vector<DrawnBatch>& batches, float leastOpacity) const;

  std::vector<DrawnBatch> Solid;
  std::vector<DrawnBatch> Clear;
  GlVertexArray Layout;
  GlBuffer Vertices;
  GlBuffer Indices;
  Textures Painted;
  SurfaceProgram Plain{SurfaceProgram::Kind::Plain};
  SurfaceProgram Textured{SurfaceProgram::Kind::Textured};
};
