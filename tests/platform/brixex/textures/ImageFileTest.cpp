// Image files as textures read them. Most are written here, so that every pixel is known.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdint>
#include <fstream>
#include <set>

#include "qelvrml/platform/brixex/textures/CKelTexture.h"
#include "support/Model.h"

namespace {

const std::string Scenes = QELVRML_TEST_SCENES;

using Pixels = std::vector<std::uint32_t>;  // 0xRRGGBBAA each

std::string BigEndian(std::size_t value) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(value >> shift);
  return bytes;
}

std::string Chunk(const std::string& content) {
  const uLong crc = crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
  return BigEndian(content.size() - 4) + content + BigEndian(crc);
}

// `rows` begin with the number of their filter each.
std::string Png(std::size_t width, std::size_t height, int depth, int kind, const std::string& rows,
                const std::string& chunks = "") {
  std::string packed(compressBound(rows.size()), '\0');
  uLongf size = packed.size();
  compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(rows.data()), rows.size());
  const std::string header = BigEndian(width) + BigEndian(height) + static_cast<char>(depth) + static_cast<char>(kind);
  return "\x89PNG\r\n\x1A\n" + Chunk("IHDR" + header + std::string(3, '\0')) + chunks +
         Chunk("IDAT" + packed.substr(0, size)) + Chunk("IEND");
}

std::string Bytes(const std::vector<int>& values) { return {values.begin(), values.end()}; }

const std::string Palette = Bytes({255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255});
constexpr std::uint32_t Red = 0xFF0000FF;
constexpr std::uint32_t Green = 0x00FF00FF;
constexpr std::uint32_t Blue = 0x0000FFFF;
constexpr std::uint32_t White = 0xFFFFFFFF;

// A GIF image of up to four colours, without compression: each pixel is a code of three bits behind a clear code.
std::string GifImage(int left, int top, int width, int height, bool interlaced, const std::vector<int>& pixels) {
  std::vector<bool> bits;
  const auto add = [&bits](int code) {
    for (int bit = 0; bit < 3; ++bit) bits.push_back((code >> bit) % 2 != 0);
  };
  for (const int pixel : pixels) {
    add(4);
    add(pixel);
  }
  add(5);
  std::vector<int> blocks((bits.size() + 7) / 8 * 2, 1);  // a byte each behind its count
  for (std::size_t i = 0; i < bits.size(); ++i) {
    int& byte = blocks[i / 8 * 2 + 1];
    byte = (i % 8 == 0 ? 0 : byte) + (bits[i] ? 1 << i % 8 : 0);
  }
  return Bytes({',', left, 0, top, 0, width, 0, height, 0, interlaced ? 0x40 : 0, 2}) + Bytes(blocks) + '\0';
}

std::string Gif(int width, int height, const std::string& images, int colours = 4) {
  return "GIF89a" + Bytes({width % 256, width / 256, height % 256, height / 256, colours == 4 ? 0x81 : 0x80, 0, 0}) +
         Palette.substr(0, 3 * static_cast<std::size_t>(colours)) + images + ';';
}

std::string Read(const std::string& name) {
  std::ifstream file(Scenes + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Three columns, nine rows; the rows of the file stand in the order of its four passes.
std::string InterlacedGif() {
  std::vector<int> pixels;
  for (const int row : {0, 8, 4, 2, 6, 1, 3, 5, 7}) pixels.insert(pixels.end(), {row % 4, row / 4, (row + 3) / 4 % 4});
  return Gif(3, 9, GifImage(0, 0, 3, 9, true, pixels));
}

struct Decoded {
  int Width = 0;
  int Height = 0;
  Pixels Values;  // empty for no image

  explicit Decoded(const std::string& bytes) {
    const TemporaryFolder folder;
    CKelTexture texture;
    const bool success = texture.GenerateTextureFromFile(folder.Write("i.wrong", bytes).c_str());
    EXPECT_EQ(success, texture.GetPixelArray() != nullptr);
    Width = texture.GetWidth();
    Height = texture.GetHeight();
    for (int i = 0; success && i < Width * Height; ++i) {
      const SKelTexturePixel& p = texture.GetPixelArray()[i];
      Values.push_back(p.Red * 0x1000000U + p.Green * 0x10000U + p.Blue * 0x100U + p.Alpha);
    }
  }
};

// The content tells the kind of file, not the name.
TEST(ImageFile, EveryPixelOfEachKind) {
  struct Case {
    int Width;
    int Height;
    std::string File;
    Pixels Expected;
  };
  Pixels interlaced;
  const Pixels colours = {Red, Green, Blue, White};
  for (std::size_t y = 0; y < 9; ++y)
    interlaced.insert(interlaced.end(), {colours[y % 4], colours[y / 4], colours[(y + 3) / 4 % 4]});
  const std::string palette = Chunk("PLTE" + Palette) + Chunk("tRNS\x80");
  const std::string transparent = Bytes({'!', 0xFE, 2, 'h', 'i', 0, '!', 0xF9, 4, 1, 0, 0, 1, 0});  // behind a comment
  const std::string placed = GifImage(1, 2, 2, 1, false, {0, 3}) + GifImage(0, 0, 1, 1, false, {2});
  const Pixels twoBits = {Red - 127, Green, Blue, White, Red - 127, White, Blue, Green, Red - 127, Green};
  for (const Case& c :
       {Case{5, 2, Png(5, 2, 2, 3, Bytes({0, 0x1B, 0, 0, 0xE4, 0x40}), palette), twoBits},
        Case{1,
             2,
             Png(1, 2, 16, 2, Bytes({0, 9, 9, 128, 128, 200, 200, 0, 1, 1, 0, 0, 255, 255})),
             {0x0980C8FF, 0x0100FFFF}},
        Case{3, 9, InterlacedGif(), interlaced},
        Case{4, 3, Gif(4, 3, transparent + placed), {0, 0, 0, 0, 0, 0, 0, 0, 0, Red, White, 0}},
        Case{3, 1, Gif(3, 1, transparent + GifImage(0, 0, 3, 1, false, {0, 1, 2})), {Red, 0x00FF0000, Blue}},
        Case{2, 2, Gif(1, 1, GifImage(0, 1, 2, 1, false, {1, 3}), 2), {0, 0, Green, 0}}}) {
    const Decoded image(c.File);
    EXPECT_EQ(image.Width, c.Width);
    EXPECT_EQ(image.Height, c.Height);
    EXPECT_EQ(image.Values, c.Expected);
  }
  const Decoded jpeg(Read("Green.JPG"));  // it doesn't keep the very values
  EXPECT_EQ(jpeg.Width, 16);
  EXPECT_EQ(jpeg.Values.size(), 16U * 8U);
  for (const std::uint32_t value : jpeg.Values) EXPECT_EQ(value & 0xFCF8FCFFU, 0x00C800FFU);
}

// The rows of a GIF file that are there count; a PNG file is whole or isn't one.
TEST(ImageFile, FilesThatBreakOff) {
  const std::string gif = InterlacedGif();
  const Pixels whole = Decoded(gif).Values;
  std::set<std::size_t> counts;
  for (std::size_t length = 0; length < gif.size(); ++length) {
    Pixels values = Decoded(gif.substr(0, length)).Values;
    for (std::size_t i = 0; i < values.size(); ++i) EXPECT_TRUE(values[i] == 0 || values[i] == whole[i]) << length;
    counts.insert(values.size() - static_cast<std::size_t>(std::count(values.begin(), values.end(), 0)));
  }
  EXPECT_THAT(counts, testing::ElementsAre(0, 3, 6, 9, 12, 15, 18, 21, 24, 27));
  for (const std::string name : {"tile.png", "Green.JPG"}) {
    const std::string file = Read(name);
    for (std::size_t length = 0; length < file.size(); ++length) {
      const bool decoded = !Decoded(file.substr(0, length)).Values.empty();
      EXPECT_FALSE(decoded && name == "tile.png" && length < 80) << length;
    }
  }
}

TEST(ImageFile, NoImages) {
  for (const std::string& file : {std::string("BM"), Gif(65535, 65535, GifImage(0, 0, 1, 1, false, {0})), Gif(1, 1, ""),
                                  Png(65535, 65535, 8, 0, "")})
    EXPECT_TRUE(Decoded(file).Values.empty()) << file.substr(0, 10);
  CKelTexture texture;
  EXPECT_FALSE(texture.GenerateTextureFromFile("/no/such/file.png"));
  EXPECT_FALSE(texture.AllocatePixelArray(CKelTexture::MostPixels + 1));
}

}  // namespace
