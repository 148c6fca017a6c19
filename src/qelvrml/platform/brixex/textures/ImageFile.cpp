#include "qelvrml/platform/brixex/textures/ImageFile.h"

#include <gif_lib.h>
#include <png.h>
#include <turbojpeg.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <new>
#include <span>
#include <vector>

namespace qelvrml {
namespace {

using namespace std::string_view_literals;

constexpr unsigned char Opaque = 0xFF;

// An image of that size, all zero; none for a size that is empty or too large.
Image MakeImage(std::int64_t width, std::int64_t height, std::size_t mostPixels) {
  Image image;
  if (width <= 0 || height <= 0 || width > static_cast<std::int64_t>(mostPixels) / height) return image;
  image.Pixels.reset(new (std::nothrow) SKelTexturePixel[static_cast<std::size_t>(width * height)]());
  image.Width = static_cast<int>(width);
  image.Height = static_cast<int>(height);
  return image;
}

Image DecodePng(std::string_view file, std::size_t mostPixels) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  Image image;
  if (png_image_begin_read_from_memory(&png, file.data(), file.size())) {
    png.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;  // samples of 16 bits mean the same colours as those of 8
    png.format = PNG_FORMAT_RGBA;
    image = MakeImage(png.width, png.height, mostPixels);
    if (image.Pixels && !png_image_finish_read(&png, nullptr, image.Pixels.get(), 0, nullptr)) image = {};
  }
  png_image_free(&png);
  return image;
}

Image DecodeJpeg(std::string_view file, std::size_t mostPixels) {
  const std::unique_ptr<void, int (*)(tjhandle)> decoder(tjInitDecompress(), tjDestroy);
  const auto* bytes = reinterpret_cast<const unsigned char*>(file.data());
  int width = 0;
  int height = 0;
  int sampling = 0;
  int colours = 0;
  if (!decoder || tjDecompressHeader3(decoder.get(), bytes, file.size(), &width, &height, &sampling, &colours) != 0)
    return {};
  Image image = MakeImage(width, height, mostPixels);
  if (!image.Pixels) return {};
  auto* pixels = reinterpret_cast<unsigned char*>(image.Pixels.get());
  const int result = tjDecompress2(decoder.get(), bytes, file.size(), pixels, width, 0, height, TJPF_RGBA, 0);
  if (result != 0 && tjGetErrorCode(decoder.get()) != TJERR_WARNING) return {};
  return image;
}

/// Reads a GIF file: its screen with the first image at its place; what the image leaves free is transparent.
class GifReader {
public:
  explicit GifReader(std::string_view file) : Left(file), Gif(DGifOpen(&Left, ReadBytes, nullptr)) {}
  GifReader(const GifReader&) = delete;
  GifReader& operator=(const GifReader&) = delete;
  ~GifReader() {
    if (Gif) DGifCloseFile(Gif, nullptr);
  }

  Image Read(std::size_t mostPixels) {
    if (!Gif || !FindImage()) return {};
    const GifImageDesc& frame = Gif->Image;
    Image image = MakeImage(std::max(Gif->SWidth, frame.Left + frame.Width),
                            std::max(Gif->SHeight, frame.Top + frame.Height), mostPixels);
    if (image.Pixels && !ReadRows(image)) image = {};
    return image;
  }

private:
  static int ReadBytes(GifFileType* gif, GifByteType* out, int count) {
    auto& left = *static_cast<std::string_view*>(gif->UserData);
    const std::size_t got = std::min(left.size(), static_cast<std::size_t>(std::max(count, 0)));
    std::memcpy(out, left.data(), got);
    left.remove_prefix(got);
    return static_cast<int>(got);
  }

  bool FindImage() {
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    while (DGifGetRecordType(Gif, &record) == GIF_OK && record != TERMINATE_RECORD_TYPE) {
      if (record == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(Gif) == GIF_OK;
      if (record == EXTENSION_RECORD_TYPE && !ReadExtension()) return false;
    }
    return false;
  }

  // Extensions are passed over, but for the index of the transparent colour.
  bool ReadExtension() {
    int code = 0;
    GifByteType* bytes = nullptr;
    if (DGifGetExtension(Gif, &code, &bytes) != GIF_OK) return false;
    while (bytes) {
      GraphicsControlBlock control;
      if (code == GRAPHICS_EXT_FUNC_CODE && DGifExtensionToGCB(bytes[0], bytes + 1, &control) == GIF_OK) {
        Transparent = control.TransparentColor;
      }
      if (DGifGetExtensionNext(Gif, &bytes) != GIF_OK) return false;
    }
    return true;
  }

  // True if there was a row at least: of a damaged image the rows behind the damage stay empty.
  bool ReadRows(Image& image) {
    const ColorMapObject* colours = Gif->Image.ColorMap ? Gif->Image.ColorMap : Gif->SColorMap;
    if (!colours) return false;
    // An interlaced image holds every eighth row first, then those between them in three more passes.
    constexpr std::array<std::array<int, 2>, 4> Passes = {{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
    constexpr std::array<std::array<int, 2>, 1> OnePass = {{{0, 1}}};
    const std::span<const std::array<int, 2>> passes = Gif->Image.Interlace
                                                           ? std::span<const std::array<int, 2>>(Passes)
                                                           : std::span<const std::array<int, 2>>(OnePass);
    const GifImageDesc& frame = Gif->Image;
    std::vector<GifPixelType> row(static_cast<std::size_t>(frame.Width));
    bool found = false;
    for (const auto& [first, step] : passes) {
      for (int y = first; y < frame.Height; y += step) {
        if (DGifGetLine(Gif, row.data(), frame.Width) != GIF_OK) return found;
        SKelTexturePixel* pixel =
            image.Pixels.get() + static_cast<std::ptrdiff_t>(frame.Top + y) * image.Width + frame.Left;
        for (const GifPixelType index : row) *pixel++ = PixelOf(index, *colours);
        found = true;
      }
    }
    return found;
  }

  SKelTexturePixel PixelOf(GifPixelType index, const ColorMapObject& colours) const {
    if (index >= colours.ColorCount) return {};
    const GifColorType& colour = colours.Colors[index];
    return {colour.Red, colour.Green, colour.Blue, index == Transparent ? static_cast<unsigned char>(0) : Opaque};
  }

  std::string_view Left;
  GifFileType* Gif;
  int Transparent = NO_TRANSPARENT_COLOR;
};

}  // namespace

Image DecodeImage(std::string_view file, std::size_t mostPixels) {
  if (file.starts_with("\x89PNG"sv)) return DecodePng(file, mostPixels);
  if (file.starts_with("\xFF\xD8"sv)) return DecodeJpeg(file, mostPixels);
  if (file.starts_with("GIF8"sv)) return GifReader(file).Read(mostPixels);
  return {};
}

}  // namespace qelvrml
