#pragma once

#include "picture/Camera.h"
#include "picture/Gl.h"
#include "picture/Shaders.h"

/// Where tiles of a picture are drawn. A tile is drawn finer than the picture and with several samples for each of
/// these pixels, in light times opacity; the pixels of the picture are their means.
class Canvas {
public:
  /// As large as a picture, unless that is too large for one tile.
  explicit Canvas(const PictureSize& picture);

  int TileWidth() const { return Width; }
  int TileHeight() const { return Height; }
  /// Lets triangles be drawn here, on a background of that light times opacity.
  void Begin(const std::array<float, 4>& background) const;
  /// Takes a tile's pixels to their place in a picture.
  void Finish(const Tile& tile, Image& picture) const;

private:
  int Samples;
  int Fineness;  // pixels drawn along the side of one of the picture
  int Width;     // of a tile, in pixels of the picture
  int Height;
  PixelProgram Program;
  GlVertexArray NoVertices;
  GlTexture Drawn;
  GlRenderbuffer Depth;
  GlFramebuffer Fine;
  GlRenderbuffer Pixels;
  GlFramebuffer Coarse;
};
