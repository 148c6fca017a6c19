#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "qelvrml/platform/brixex/textures/CKelTextureTypes.h"

namespace qelvrml {

/// The pixels of an image, row after row from the top.
struct Image {
  int Width = 0;
  int Height = 0;
  SKelTexturePixelArray Pixels;  ///< null for no image
};

/// Pixels that are all zero; null without memory. Those that nobody writes take none.
SKelTexturePixelArray MakePixels(std::size_t count);

/// Says whether an image may be made. What its pixels and its decoding cost is given as a number of pixels.
using PixelTest = std::function<bool(std::uint64_t pixels)>;

/// Decodes a PNG, JPEG or GIF file, told by its first bytes; of a GIF file the screen with the first image at its
/// place. JPEG and GIF files that break off give the rows that there are. No image for anything else, for a damaged
/// file, for more than `mostPixels`, for a size or a number of scans that is out of all proportion to the file's bytes,
/// and for what `mayMake` refuses, which is asked before any memory is taken for pixels.
Image DecodeImage(std::string_view file, std::size_t mostPixels, const PixelTest& mayMake);

}  // namespace qelvrml
