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
#include <string>
#include <vector>

namespace qelvrml {
namespace {

using namespace std::string_view_literals;

constexpr unsigned char Opaque = 0xFF;

/// What decoding an image of a kind may take. A pixel costs 10 to 60 ns, so that a file of 1 MB takes no 2 seconds.
struct ImageKind {
  std::uint64_t PixelsOfAByte;  ///< beside PixelsOfAnyFile; what an image of this size has at its fewest in practice
  std::uint64_t Cost;           ///< of a pixel, in pixels: its own memory, and that or the time of its decoding
};
constexpr std::uint64_t PixelsOfAnyFile = 16'777'216;
constexpr ImageKind PngKind = {16, 2};
constexpr ImageKind DeepPngKind = {8, 6};  // of 16 bits
constexpr ImageKind JpegKind = {20, 3};    // a progressive one holds its coefficients
constexpr ImageKind GifKind = {32, 2};
/// Pixels of all scans of a JPEG file together: each scan visits all of them, even one without data.
constexpr std::uint64_t MostScannedPixels = 1ULL << 30U;

/// Makes the pixels of one file's image, if it may have them.
struct ImageMaker {
  std::uint64_t FileSize;
  std::uint64_t MostPixels;
  const PixelTest& MayMake;

  // An image of that size, all zero; none for a size that is empty or too large.
  Image Make(std::int64_t width, std::int64_t height, const ImageKind& kind) const {
    Image image;
    if (width <= 0 || height <= 0) return image;
    const std::uint64_t most = std::min(MostPixels, PixelsOfAnyFile + kind.PixelsOfAByte * FileSize);
    if (static_cast<std::uint64_t>(width) > most / static_cast<std::uint64_t>(height)) return image;
    const auto pixels = static_cast<std::size_t>(width * height);
    if (!MayMake(pixels * kind.Cost)) return image;
    image.Pixels = MakePixels(pixels);
    image.Width = static_cast<int>(width);
    image.Height = static_cast<int>(height);
    return image;
  }
};

constexpr std::size_t PngSignature = 8;
constexpr std::size_t ChunkFrame = 12;  // length, type and check of a chunk

// A PNG file without the chunks that a reader may pass over and that don't tell the colours of its pixels: packed texts
// take time to unpack, whatever their use.
std::string KeepPixelChunks(std::string_view file) {
  std::string kept(file.substr(0, PngSignature));
  file.remove_prefix(std::min(PngSignature, file.size()));
  while (file.size() >= ChunkFrame) {
    std::uint64_t length = ChunkFrame;
    for (std::size_t i = 0; i < 4; ++i)
      length += static_cast<std::uint64_t>(static_cast<unsigned char>(file[i])) << (24U - 8U * i);
    const std::string_view chunk = file.substr(0, length);
    const std::string_view type = file.substr(4, 4);
    const bool critical = (static_cast<unsigned char>(type.front()) & 0x20U) == 0;
    if (critical || type == "tRNS" || type == "gAMA" || type == "cHRM" || type == "sRGB") kept += chunk;
    file.remove_prefix(chunk.size());
  }
  return kept;
}

Image DecodePng(std::string_view file, const ImageMaker& maker) {
  const std::string pixelChunks = KeepPixelChunks(file);
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  Image image;
  if (png_image_begin_read_from_memory(&png, pixelChunks.data(), pixelChunks.size())) {
    const bool deep = (png.format & PNG_FORMAT_FLAG_LINEAR) != 0;
    png.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;  // samples of 16 bits mean the same colours as those of 8
    png.format = PNG_FORMAT_RGBA;
    image = maker.Make(png.width, png.height, deep ? DeepPngKind : PngKind);
    if (image.Pixels && !png_image_finish_read(&png, nullptr, image.Pixels.get(), 0, nullptr)) image = {};
  }
  png_image_free(&png);
  return image;
}

// The scans of a JPEG file, or a few more: a small picture inside it has its own.
std::uint64_t CountScans(std::string_view file) {
  constexpr std::string_view ScanMarker = "\xFF\xDA";
  std::uint64_t count = 0;
  for (std::size_t i = file.find(ScanMarker); i != std::string_view::npos; i = file.find(ScanMarker, i + 2)) ++count;
  return count;
}

Image DecodeJpeg(std::string_view file, const ImageMaker& maker) {
  const std::unique_ptr<void, int (*)(tjhandle)> decoder(tjInitDecompress(), tjDestroy);
  const auto* bytes = reinterpret_cast<const unsigned char*>(file.data());
  int width = 0;
  int height = 0;
  int sampling = 0;
  int colours = 0;
  if (!decoder || tjDecompressHeader3(decoder.get(), bytes, file.size(), &width, &height, &sampling, &colours) != 0)
    return {};
  if (colours == TJCS_CMYK || colours == TJCS_YCCK) return {};  // the library makes no red, green and blue of them
  const std::uint64_t pixels = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
  if (pixels * CountScans(file) > MostScannedPixels) return {};
  Image image = maker.Make(width, height, JpegKind);
  if (!image.Pixels) return {};
  auto* target = reinterpret_cast<unsigned char*>(image.Pixels.get());
  const int result =
      tjDecompress2(decoder.get(), bytes, file.size(), target, width, 0, height, TJPF_RGBA, TJFLAG_LIMITSCANS);
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

  Image Read(const ImageMaker& maker) {
    if (!Gif || !FindImage()) return {};
    const GifImageDesc& frame = Gif->Image;
    Image image = maker.Make(std::max(Gif->SWidth, frame.Left + frame.Width),
                             std::max(Gif->SHeight, frame.Top + frame.Height), GifKind);
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

SKelTexturePixelArray MakePixels(std::size_t count) {
  return SKelTexturePixelArray(static_cast<SKelTexturePixel*>(std::calloc(count, sizeof(SKelTexturePixel))));
}

Image DecodeImage(std::string_view file, std::size_t mostPixels, const PixelTest& mayMake) {
  const ImageMaker maker = {file.size(), mostPixels, mayMake};
  if (file.starts_with("\x89PNG"sv)) return DecodePng(file, maker);
  if (file.starts_with("\xFF\xD8"sv)) return DecodeJpeg(file, maker);
  if (file.starts_with("GIF8"sv)) return GifReader(file).Read(maker);
  return {};
}

}  // namespace qelvrml
