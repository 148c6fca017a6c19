#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "qelvrml/platform/brixex/textures/CKelTextureTypes.h"

namespace qelvrml {

/// The pixels of an image, row after row from the top.
struct Image {
  int Width = 0;
  int Height = 0;
  std::unique_ptr<SKelTexturePixel[]> Pixels;  ///< null for no image
};

/// Decodes a PNG, JPEG or GIF file, told by its first bytes; of a GIF file the screen with the first image at its
/// place. JPEG and GIF files that break off give the rows that there are. No image for anything else, for a damaged
/// file, and for more than `mostPixels`.
Image DecodeImage(std::string_view file, std::size_t mostPixels);

}  // namespace qelvrml
