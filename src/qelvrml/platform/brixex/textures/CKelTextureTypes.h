#pragma once

#include <cstdlib>
#include <memory>

/// What happens to texture coordinates outside 0 to 1.
enum TextureWrapTypes {
  TextureWrapClamp = 0,   ///< the border's colour goes on
  TextureWrapRepeat = 1,  ///< the image is repeated
};

/// One pixel of a texture.
struct SKelTexturePixel {
  unsigned char Red = 0;
  unsigned char Green = 0;
  unsigned char Blue = 0;
  unsigned char Alpha = 0;
};
static_assert(sizeof(SKelTexturePixel) == 4, "pixels are shared with hosts as four bytes each");

/// Frees pixels from the system's allocator.
struct SKelTexturePixelDeleter {
  void operator()(SKelTexturePixel* pixels) const { std::free(pixels); }
};

/// Owns pixels from the system's allocator.
using SKelTexturePixelArray = std::unique_ptr<SKelTexturePixel[], SKelTexturePixelDeleter>;

/// Scale of texture coordinates.
struct SKelTextureScale {
  float S = 1.0F;
  float T = 1.0F;
};
