#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <set>

#include "qelvrml/platform/brixex/textures/CKelTexture.h"
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

}  // namespace
