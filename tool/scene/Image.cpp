#include "scene/Image.h"

#include <png.h>

#include <stdexcept>

#include "text/Text.h"

namespace {

std::vector<std::uint8_t> WithoutOpacity(const Image& image) {
  std::vector<std::uint8_t> pixels;
  pixels.reserve(image.Pixels.size() / 4 * 3);
  for (std::size_t i = 0; i + 3 < image.Pixels.size(); i += 4) {
    pixels.insert(pixels.end(), {image.Pixels[i], image.Pixels[i + 1], image.Pixels[i + 2]});
  }
  return pixels;
}

}  // namespace

Image MakeImage(const CKelTexture& texture) {
  Image image;
  const SKelTexturePixel* pixels = texture.GetPixelArray();
  if (!pixels) return image;
  image.File = ToUtf8(texture.GetFilename());
  image.Width = texture.GetWidth();
  image.Height = texture.GetHeight();
  const auto width = static_cast<std::size_t>(image.Width);
  const auto height = static_cast<std::size_t>(image.Height);
  image.Pixels.reserve(4 * width * height);
  const bool fromScene = texture.GetFilename().GetLength() == 0;
  for (std::size_t row = 0; row < height; ++row) {
    const SKelTexturePixel* pixel = pixels + width * (fromScene ? height - 1 - row : row);
    for (std::size_t column = 0; column < width; ++column, ++pixel) {
      const std::uint8_t opacity = fromScene ? std::uint8_t{255} : pixel->Alpha;
      image.Pixels.insert(image.Pixels.end(), {pixel->Red, pixel->Green, pixel->Blue, opacity});
    }
  }
  return image;
}

bool IsOpaque(const Image& image) {
  for (std::size_t i = 3; i < image.Pixels.size(); i += 4) {
    if (image.Pixels[i] != 255) return false;
  }
  return true;
}

std::string EncodePng(const Image& image) {
  const bool opaque = IsOpaque(image);
  const std::vector<std::uint8_t> pixels = opaque ? WithoutOpacity(image) : image.Pixels;
  png_image header{};
  header.version = PNG_IMAGE_VERSION;
  header.width = static_cast<png_uint_32>(image.Width);
  header.height = static_cast<png_uint_32>(image.Height);
  header.format = opaque ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
  std::string file(PNG_IMAGE_PNG_SIZE_MAX(header), '\0');
  png_alloc_size_t size = file.size();
  if (png_image_write_to_memory(&header, file.data(), &size, 0, pixels.data(), 0, nullptr) == 0) {
    throw std::runtime_error(std::string("can't make a PNG image: ") + header.message);
  }
  file.resize(size);
  return file;
}
