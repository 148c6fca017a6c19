#pragma once

#include <vector>

#include "picture/Drawing.h"
#include "picture/Gl.h"

/// The images of a scene as textures of OpenGL, whose colours are light times opacity.
class Textures {
public:
  explicit Textures(const std::vector<Image>& images);

  /// Makes the texture that is to be used the current one.
  void Bind(const TextureUse& use) const;

private:
  std::vector<GlTexture> Names;  // by the index of the image
};
