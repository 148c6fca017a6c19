#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdint>
#include <fstream>
#include <set>
#include <tuple>

#include "qelvrml/platform/brixex/textures/CKelTexture.h"
#include "qelvrml/platform/brixex/textures/ImageFile.h"
#include "support/Model.h"

namespace {

using Pixels = std::vector<std::uint32_t>;  // 0xRRGGBBAA each

constexpr std::uint32_t R = 0xFF0000FF;
constexpr std::uint32_t G = 0x00FF00FF;
constexpr std::uint32_t B = 0x0000FFFF;
constexpr std::uint32_t W = 0xFFFFFFFF;

std::string Read(const std::string& name) {
  std::ifstream file(std::string(QELVRML_TEST_SCENES) + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
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

// The content tells the kind of file, not the name. Two bits a pixel, sixteen a sample; rows in four passes; the first
// of two images within a screen; an image beyond its screen with a colour that the palette lacks.
TEST(ImageFile, EveryPixelOfEachKind) {
  const Pixels interlaced = {R, R, R, G, R, G, B, R, G, W, R, G, R, G, G, G, G, B, B, G, B, W, G, B, R, B, B};
  for (const auto& [name, width, height, expected] : std::vector<std::tuple<std::string, int, int, Pixels>>{
           {"palette.png", 5, 2, {R - 127, G, B, W, R - 127, W, B, G, R - 127, G}},
           {"deep.png", 1, 2, {0x0980C8FF, 0x0100FFFF}},
           {"interlaced.gif", 3, 9, interlaced},
           {"placed.gif", 4, 3, {0, 0, 0, 0, 0, 0, 0, 0, 0, R, G - 255, 0}},
           {"outside.gif", 2, 2, {0, 0, G, 0}},
           {"tile.png", 3, 2, {R, G, B - 127, 0x010203FF, 0x090909FF, 0x07070700}}}) {
    const Decoded image(Read(name));
    EXPECT_EQ(image.Width, width) << name;
    EXPECT_EQ(image.Height, height) << name;
    EXPECT_EQ(image.Values, expected) << name;
  }
  const Decoded jpeg(Read("Green.JPG"));  // it doesn't keep the very values
  EXPECT_EQ(jpeg.Width, 16);
  EXPECT_EQ(jpeg.Values.size(), 16U * 8U);
  for (const std::uint32_t value : jpeg.Values) EXPECT_EQ(value & 0xFCF8FCFFU, 0x00C800FFU);
}

// The rows of a GIF file that are there count; a PNG file is whole or isn't one.
TEST(ImageFile, FilesThatBreakOff) {
  const std::string gif = Read("interlaced.gif");
  const Pixels whole = Decoded(gif).Values;
  std::set<std::size_t> counts;
  for (std::size_t length = 0; length < gif.size(); ++length) {
    const Pixels values = Decoded(gif.substr(0, length)).Values;
    for (std::size_t i = 0; i < values.size(); ++i) EXPECT_TRUE(values[i] == 0 || values[i] == whole[i]) << length;
    counts.insert(values.size() - static_cast<std::size_t>(std::count(values.begin(), values.end(), 0U)));
  }
  EXPECT_THAT(counts, testing::ElementsAre(0, 3, 6, 9, 12, 15, 18, 21, 24, 27));
  for (const std::string name : {"tile.png", "Green.JPG"}) {
    const std::string file = Read(name);
    for (std::size_t length = 0; length < file.size(); ++length) {
      const bool decoded = !Decoded(file.substr(0, length)).Values.empty();
      EXPECT_FALSE(decoded && name == "tile.png" && length < 80) << length;
    }
  }
  EXPECT_TRUE(Decoded(Read("huge.gif")).Values.empty()) << "a screen of too many pixels";
  EXPECT_TRUE(Decoded("BM").Values.empty());
}

std::string Bytes(std::initializer_list<int> values) { return {values.begin(), values.end()}; }

// A grey progressive JPEG file whose scans but the first hold nothing; tables with one code each.
std::string JpegOfScans(int width, int height, int scans) {
  std::string file = Bytes({0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0}) + std::string(64, '\1');
  file += Bytes({0xFF, 0xC2, 0, 11, 8, height >> 8, height & 0xFF, width >> 8, width & 0xFF, 1, 1, 0x11, 0});
  for (const int table : {0x00, 0x10})
    file += Bytes({0xFF, 0xC4, 0, 20, table, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  file +=
      Bytes({0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 0, 0}) + std::string(static_cast<std::size_t>(width * height / 512), '\0');
  for (int i = 1; i < scans; ++i) file += Bytes({0xFF, 0xDA, 0, 8, 1, 1, 0, 1, 63, 0});
  return file + Bytes({0xFF, 0xD9});
}

// Scans cost time even if they hold nothing: 500 are read, and 2^30 pixels of all scans together.
TEST(ImageFile, TheScansOfAFileAreBounded) {
  for (const auto& [size, scans, decoded] :
       {std::tuple(8, 1, true), std::tuple(8, 500, true), std::tuple(8, 501, false), std::tuple(8, 4001, false),
        std::tuple(4096, 64, true), std::tuple(4096, 65, false)})
    EXPECT_EQ(!Decoded(JpegOfScans(size, size, scans)).Values.empty(), decoded) << size << " " << scans;
}

std::string BigEndian(int value) { return Bytes({value >> 24, value >> 16, value >> 8, value}); }

std::string Chunk(const std::string& type, const std::string& data) {
  const std::string body = type + data;
  const auto check = crc32(0, reinterpret_cast<const Bytef*>(body.data()), static_cast<uInt>(body.size()));
  return BigEndian(static_cast<int>(data.size())) + body + BigEndian(static_cast<int>(check));
}

std::string PngHeader(int width, int height, int bits) {
  return "\x89PNG\r\n\x1a\n" + Chunk("IHDR", BigEndian(width) + BigEndian(height) + Bytes({bits, 0, 0, 0, 0})) +
         Chunk("IDAT", "");
}

// 16,777,216 pixels, and more for each byte of the file: 4096 more need 256, 512, 205 and 128 bytes. What it costs is
// asked before memory is taken.
TEST(ImageFile, ASizeIsInProportionToTheFile) {
  const auto gif = [](int width) {
    return "GIF89a" + Bytes({width, width >> 8, 0, 0x10, 0, 0, 0}) + "," + Bytes({0, 0, 0, 0, 1, 0, 1, 0, 0, 2, 0});
  };
  struct Case {
    std::string File;
    std::size_t Enough;
    std::uint64_t Cost;
  };
  for (const auto& [file, enough, cost] :
       {Case{PngHeader(4096, 4096, 8), 0, 2}, Case{PngHeader(4097, 4096, 8), 256, 2},
        Case{PngHeader(4097, 4096, 16), 512, 6}, Case{gif(4096), 0, 2}, Case{gif(4097), 128, 2},
        Case{JpegOfScans(4097, 4096, 1).substr(0, 200), 205, 3}}) {
    for (const std::size_t size : {enough > 0 ? enough - 1 : file.size(), std::max(enough, file.size())}) {
      std::uint64_t asked = 0;
      const qelvrml::Image image =
          qelvrml::DecodeImage(file + std::string(size - file.size(), '\0'), 67'108'864, [&](std::uint64_t pixels) {
            asked = pixels;
            return false;
          });
      EXPECT_EQ(asked / 4096 / 4096, size < enough ? 0U : cost) << enough;
      EXPECT_FALSE(image.Pixels);
    }
  }
}

// Chunks that don't tell the colours aren't even looked at: texts, profiles, and what has no name.
TEST(ImageFile, OnlyThePixelsOfAPngFileAreUnpacked) {
  const std::string tile = Read("tile.png");
  const std::size_t behindHeader = 8 + 25;
  const auto with = [&](const std::string& chunk) {
    return Decoded(tile.substr(0, behindHeader) + chunk + tile.substr(behindHeader)).Values;
  };
  EXPECT_EQ(with(Chunk("zTXt", "a")), Decoded(tile).Values);
  EXPECT_EQ(with(Chunk("a\1cd", "")), Decoded(tile).Values);
  EXPECT_TRUE(with(Chunk("ABCD", "")).empty()) << "one that must be understood";
}

}  // namespace
