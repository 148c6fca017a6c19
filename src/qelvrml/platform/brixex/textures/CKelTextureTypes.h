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
  unsigned char Red = 0;    ///< share of red, up to 255
  unsigned char Green = 0;  ///< share of green, up to 255
  unsigned char Blue = 0;   ///< share of blue, up to 255
  unsigned char Alpha = 0;  ///< of an image file the opacity, up to 255; of a PixelTexture node always 0
};
static_assert(sizeof(SKelTexturePixel) == 4, "pixels are shared with hosts as four bytes each");

/// Frees pixels from the system's allocator.
struct SKelTexturePixelDeleter {
  /// Null does no harm.
  void operator()(SKelTexturePixel* pixels) const { std::free(pixels); }
};

/// Owns pixels from the system's allocator.
using SKelTexturePixelArray = std::unique_ptr<SKelTexturePixel[], SKelTexturePixelDeleter>;

/// Scale of texture coordinates.
struct SKelTextureScale {
  float S = 1.0F;  ///< factor along s
  float T = 1.0F;  ///< factor along t
};
