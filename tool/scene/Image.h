#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "qelvrml/platform/brixex/textures/CKelTexture.h"

/// An image: four bytes a pixel, red, green, blue and opacity, row after row from the top left.
struct Image {
  std::string File;  ///< UTF-8; empty for pixels that a scene gives
  int Width = 0;
  int Height = 0;
  std::vector<std::uint8_t> Pixels;
};

/// The image of a texture; those that a scene gives as pixels are opaque and stand the other way up.
Image MakeImage(const CKelTexture& texture);

/// Whether nothing shines through any pixel.
bool IsOpaque(const Image& image);

/// A PNG file with the image, without opacity if all of it is opaque. Raises an exception if that can't be made.
std::string EncodePng(const Image& image);
