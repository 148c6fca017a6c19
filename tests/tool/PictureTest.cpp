#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>

#include "support/Model.h"
#include "support/Tool.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Pixel = std::array<int, 4>;

const Pixel Red{255, 0, 0, 255};
const Pixel Green{0, 255, 0, 255};
const Pixel Blue{0, 0, 255, 255};
const Pixel White{255, 255, 255, 255};

MATCHER_P2(IsPixel, pixel, tolerance, "") {
  for (std::size_t i = 0; i < 4; ++i) {
    if (std::abs(arg[i] - pixel[i]) > tolerance) return false;
  }
  return true;
}

/// Columns and rows of a picture, the last ones included.
struct Frame {
  int Left;
  int Top;
  int Right;
  int Bottom;
};

class Picture {
public:
  explicit Picture(const std::string& path) {
    png_image header{};
    header.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_file(&header, path.c_str()), 0) << path << ": " << header.message;
    header.format = PNG_FORMAT_RGBA;
    Width = static_cast<int>(header.width);
    Height = static_cast<int>(header.height);
    Bytes.resize(PNG_IMAGE_SIZE(header));
    EXPECT_NE(png_image_finish_read(&header, nullptr, Bytes.data(), 0, nullptr), 0) << header.message;
  }
  Pixel At(int column, int row) const {
    const std::uint8_t* bytes = &Bytes.at(4 * static_cast<std::size_t>(row * Width + column));
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
  }
  template <class Function>
  void ForEach(Function function) const {
    for (int row = 0; row < Height; ++row) {
      for (int column = 0; column < Width; ++column) function(At(column, row), column, row);
    }
  }
  /// Around all that isn't background.
  Frame Content() const {
    Frame frame{Width, Height, -1, -1};
    const Pixel background = At(0, 0);
    ForEach([&](const Pixel& pixel, int column, int row) {
      if (pixel == background) return;
      frame = {std::min(frame.Left, column), std::min(frame.Top, row), std::max(frame.Right, column),
               std::max(frame.Bottom, row)};
    });
    return frame;
  }

  int Width = 0;
  int Height = 0;

private:
  std::vector<std::uint8_t> Bytes;
};

/// Takes pictures of scenes in a folder of its own.
class PictureTest : public testing::Test {
protected:
  ToolOutput Run(const std::string& scene, const std::string& options) const {
    const std::string path = Folder.Write("scene.wrl", "#VRML V2.0 utf8\n" + scene);
    return RunTool("picture " + path + " " + OutPath() + " " + options);
  }
  Picture Take(const std::string& scene, const std::string& options) const {
    const ToolOutput output = Run(scene, options + " --force");
    EXPECT_EQ(output.Status, 0) << output.Error;
    return Picture(OutPath());
  }
  std::string OutPath() const { return (Folder.Path() / "out.PNG").string(); }

  const TemporaryFolder Folder;
};

/// A shape that shines in a colour and reflects nothing.
std::string Shining(const std::string& colour, const std::string& geometry, const std::string& more = "") {
  return " Shape { appearance Appearance { material Material { diffuseColor 0 0 0 emissiveColor " + colour + " " +
         more + " } } geometry " + geometry + " }";
}

std::string At(const std::string& place, const std::string& shape) {
  return " Transform { translation " + place + " children [ " + shape + " ] }";
}

/// A square of 2 by 2 about the Z axis, with the image's lower left corner at its own.
std::string Square(const std::string& material, const std::string& texture, const std::string& coordinates) {
  return "Shape { appearance Appearance { material Material { " + material + " } texture " + texture +
         " } geometry IndexedFaceSet { coord Coordinate { point [ -1 -1 0, 1 -1 0, 1 1 0, -1 1 0 ] }"
         " coordIndex [ 0 1 2 3 ] texCoord TextureCoordinate { point [ " +
         coordinates + " ] } } }";
}

// Cubes of 1 on the axes at 2. Seen along an axis, all is 3 by 3 with a twenty-fifth of the side as margin: the middles
// of cubes are at a sixth or at five sixths of what is inside of it, which is of 92 and of 92 hundredths of the side.
TEST_F(PictureTest, ShowsEachAxisWhereItPoints) {
  const std::string scene = At("2 0 0", Shining("1 0 0", "Box { size 1 1 1 }")) +
                            At("0 2 0", Shining("0 1 0", "Box { size 1 1 1 }")) +
                            At("0 0 2", Shining("0 0 1", "Box { size 1 1 1 }"));
  struct Case {
    const char* From;
    const char* Size;
    std::array<Pixel, 4> Colours;  // upper left, upper right, lower left, lower right
  };
  for (const Case& c : {
           Case{"front", "300x300", {Green, White, Blue, Red}},
           Case{"0,0,2", "1500x1500", {Green, White, Blue, Red}},  // in tiles
           Case{"back", "300x300", {White, Green, Red, Blue}},
           Case{"right", "300x300", {White, Green, Blue, Red}},
           Case{"left", "300x300", {Green, White, Red, Blue}},
           Case{"top", "300x300", {Green, Red, Blue, White}},
           Case{"bottom", "300x300", {Blue, White, Green, Red}},
       }) {
    const Picture picture = Take(scene, std::string("--direction ") + c.From + " --size " + c.Size);
    const int low = picture.Width * (4 * 6 + 92) / 600;
    const int high = picture.Width - low;
    const std::vector<std::pair<int, int>> places = {{low, low}, {high, low}, {low, high}, {high, high}};
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ(picture.At(places[i].first, places[i].second), c.Colours[i]) << c.From << " " << c.Size << " " << i;
    }
  }
  // From the corner of all three: X goes to the lower right, Z to the lower left.
  const Picture corner = Take(scene, "--direction 1,1,1 --size 300x300");
  EXPECT_EQ(corner.At(150, 55), Green);
  EXPECT_EQ(corner.At(55, 219), Blue) << "150 -+ 95 across, 110 of 164 below";
  EXPECT_EQ(corner.At(244, 219), Red);
}

// The margin is a twenty-fifth of the shorter side. Across the other direction the scene stands in the middle.
TEST_F(PictureTest, FillsTheFrameUpToTheMargin) {
  const std::string lines =
      Shining("0 0 1", "IndexedLineSet { coord Coordinate { point [ 0 0 0, 3 1 0, 1 4 2 ] } coordIndex [ 0 1 2 ] }");
  const std::string solids = At("3 0 0", Shining("1 0 0", "Sphere { radius 2 }")) + Shining("0 1 0", "Cone {}");
  for (const std::string& scene : {lines, solids, At("1e5 -2e5 1e5", solids), Shining("0 0 0", "Box { size 5 0 3 }")}) {
    for (const auto& [size, margin] : {std::pair{"300x400", 12}, {"600x100", 4}}) {
      for (const char* from : {"corner", "top", "-1,-3,0.2"}) {
        const Picture picture = Take(scene, std::string("--direction ") + from + " --size " + size);
        const Frame content = picture.Content();
        const int right = picture.Width - 1 - content.Right;
        const int bottom = picture.Height - 1 - content.Bottom;
        EXPECT_NEAR(std::min(content.Left, content.Top), margin, 2) << scene << size << from;
        EXPECT_NEAR(content.Left, right, 2) << scene << size << from;
        EXPECT_NEAR(content.Top, bottom, 2) << scene << size << from;
      }
    }
  }
}

TEST_F(PictureTest, LooksTheSameAtAnySizeOfTheScene) {
  const auto take = [this](const std::string& size) {
    return Take("Shape { appearance Appearance { material Material { diffuseColor .8 .4 .2 } } geometry Box { size " +
                    size + " } }",
                "--size 200x150");
  };
  const Picture usual = take("1 2 1");
  for (const char* size : {"1e-30 2e-30 1e-30", "1e30 2e30 1e30"}) {
    const Picture other = take(size);
    int differing = 0;
    usual.ForEach([&](const Pixel& pixel, int column, int row) {
      if (!testing::Value(other.At(column, row), IsPixel(pixel, 4))) ++differing;
    });
    EXPECT_EQ(differing, 0) << size;
  }
}

TEST_F(PictureTest, LightsBothSidesFromTheUpperLeft) {
  const Picture ball =
      Take("Shape { appearance Appearance { material Material { diffuseColor .5 .5 .5 } } geometry Sphere {} }",
           "--size 200x200 --direction front");
  EXPECT_GT(ball.At(65, 55)[0], ball.At(100, 100)[0]);
  EXPECT_GT(ball.At(100, 100)[0], ball.At(140, 150)[0] + 20);
  EXPECT_GT(ball.At(140, 150)[0], 40) << "readable in the shade";
  const Picture black =
      Take("Shape { appearance Appearance { material Material { diffuseColor 0 0 0 } } geometry Box {} }",
           "--size 100x100 --direction 1,0.1,1");
  EXPECT_GT(black.At(30, 50)[0], black.At(70, 50)[0] + 8) << "sides of a black box differ";
  EXPECT_LT(black.At(30, 50)[0], 64);

  const Picture shiny = Take(
      "Shape { appearance Appearance { material Material { diffuseColor 0 0 0 specularColor 0 1 0 shininess 0.2 } } "
      "geometry Sphere {} }",
      "--size 200x200 --direction front");
  EXPECT_GT(shiny.At(79, 72)[1], 180) << "half way between the lamp and the eye";
  EXPECT_LT(shiny.At(150, 150)[1], 60);
  for (const char* from : {"front", "back"}) {
    const Picture square = Take(Square("", "NULL", ""), std::string("--size 100x100 --direction ") + from);
    EXPECT_GT(square.At(50, 50)[0], 180) << from;
    EXPECT_LT(square.At(50, 50)[0], 250) << "differs from the background";
  }
}

/// An image of four quadrants: red and green above the one given and white.
void WriteQuadrants(const std::filesystem::path& path, const Pixel& lowerLeft) {
  std::vector<std::uint8_t> bytes;
  for (int i = 0; i < 64; ++i) {
    const bool isLeft = i % 8 < 4;
    const Pixel pixel = i < 32 ? (isLeft ? Red : Green) : (isLeft ? lowerLeft : White);
    for (const int byte : pixel) bytes.push_back(static_cast<std::uint8_t>(byte));
  }
  png_image header{};
  header.version = PNG_IMAGE_VERSION;
  header.width = header.height = 8;
  header.format = PNG_FORMAT_RGBA;
  ASSERT_NE(png_image_write_to_file(&header, path.c_str(), 0, bytes.data(), 0, nullptr), 0);
}

TEST_F(PictureTest, LaysTexturesTheRightWayUp) {
  WriteQuadrants(Folder.Path() / "quadrants.png", Blue);
  WriteQuadrants(Folder.Path() / "hole.png", {0, 0, 0, 0});
  const std::string once = "0 0, 1 0, 1 1, 0 1";
  const std::string twice = "0 0, 2 0, 2 1, 0 1";
  const std::string white = "diffuseColor 1 1 1";
  const std::string behind =
      "Transform { translation 0 0 -1 children [" + Shining("1 0 1", "Box { size 2 2 1 }") + " ] }";
  struct Case {
    std::string Scene;
    std::string Colours;  // of the upper half from the left, and of the lower half; M is magenta
  };
  for (const Case& c : {
           Case{Square(white, R"(ImageTexture { url "quadrants.png" })", once), "RRGGBBWW"},
           Case{Square(white, "PixelTexture { image 2 2 3 0x0000FF 0xFFFFFF 0xFF0000 0x00FF00 }", once), "RRGGBBWW"},
           Case{Square(white, R"(ImageTexture { url "quadrants.png" })", twice), "RGRGBWBW"},
           Case{Square(white, R"(ImageTexture { url "quadrants.png" repeatS FALSE })", twice), "RGGGBWWW"},
           Case{Square(white, R"(ImageTexture { url "hole.png" })", once) + behind, "RRGGMMWW"},
       }) {
    const Picture picture = Take(c.Scene, "--size 100x100 --direction front");
    std::string colours;
    for (const int row : {27, 73}) {
      for (const int eighth : {1, 3, 5, 7}) {
        const Pixel pixel = picture.At(4 + 92 * eighth / 8, row);
        const int code = (pixel[0] > 150 ? 4 : 0) + (pixel[1] > 150 ? 2 : 0) + (pixel[2] > 150 ? 1 : 0);
        colours += std::string(" BGCRMYW")[static_cast<std::size_t>(code)];
      }
    }
    EXPECT_EQ(colours, c.Colours) << c.Scene;
  }
}

// Of light: a half of red and a quarter of green and of the white behind both make 0.75, 0.5 and 0.25, which are shown
// as 225, 188 and 137.
TEST_F(PictureTest, MixesWhatLetsLightThrough) {
  const std::string square =
      "IndexedFaceSet { coord Coordinate { point [ -1 -1 0, 1 -1 0, 1 1 0, -1 1 0 ] } coordIndex [ 0 1 2 3 ] solid "
      "FALSE }";
  const std::string red = At("0 0 1", Shining("1 0 0", square, "transparency 0.5"));
  const std::string green = Shining("0 1 0", square, "transparency 0.5");
  const std::string solid = At("0 0 -1", Shining("0 0 1", square));
  for (const std::string& scene : {red + green, green + red}) {
    EXPECT_THAT(Take(scene, "--size 60x60 --direction front").At(30, 30), IsPixel(Pixel{225, 188, 137, 255}, 3));
    EXPECT_THAT(Take(scene, "--size 60x60 --direction back").At(30, 30), IsPixel(Pixel{188, 225, 137, 255}, 3));
  }
  EXPECT_THAT(Take(red + solid, "--size 60x60 --direction front").At(30, 30), IsPixel(Pixel{188, 0, 188, 255}, 3));
  EXPECT_EQ(Take(red + solid, "--size 60x60 --direction back").At(30, 30), Blue);
  // Two sides of a ball are looked through.
  const std::string ball = Shining("1 0 0", "Sphere {}", "transparency 0.5");
  EXPECT_THAT(Take(ball, "--size 60x60").At(30, 30), IsPixel(Pixel{255, 137, 137, 255}, 3));
}

TEST_F(PictureTest, SmoothsEdgesAndKeepsTheBackground) {
  const std::string bar = "Transform { rotation 0 0 1 0.3 children [" + Shining("1 0 0", "Box { size 4 1 1 }") + "] }";
  const Picture onColour = Take(bar, "--size 200x150 --direction front --background '#20304f'");
  EXPECT_EQ(onColour.At(0, 0), (Pixel{0x20, 0x30, 0x4f, 255}));
  std::array<bool, 256> reds{};
  onColour.ForEach(
      [&](const Pixel& pixel, int /*column*/, int /*row*/) { reds[static_cast<std::size_t>(pixel[0])] = true; });
  EXPECT_GE(std::count(reds.begin(), reds.end(), true), 8) << "between background and bar";

  const Picture clear = Take(bar, "--size 200x150 --direction front --background transparent");
  int halfClear = 0;
  clear.ForEach([&](const Pixel& pixel, int /*column*/, int /*row*/) {
    if (pixel[3] == 0) return;
    if (pixel[3] < 255) ++halfClear;
    EXPECT_THAT(pixel, IsPixel(Pixel{255, 0, 0, pixel[3]}, 2)) << "not darkened by what isn't there";
  });
  EXPECT_GT(halfClear, 100);
  EXPECT_EQ(clear.At(0, 0)[3], 0);
  EXPECT_EQ(clear.At(100, 75), Red);
}

/// How many pixels' worth of blue is in a part of a row.
double BlueIn(const Picture& picture, int from, int to, int row) {
  double sum = 0.0;
  for (int column = from; column < to; ++column) sum += std::pow(picture.At(column, row)[2] / 255.0, 2.2);
  return sum;
}

TEST_F(PictureTest, DrawsLinesAndDots) {
  // An upright line at 1 and dots at 0 and 3, of which the outer ones stand at the margin; 276 pixels are between them.
  const std::string line = "IndexedLineSet { coord Coordinate { point [ 1 -1 0, 1 1 0 ] } coordIndex [ 0 1 ] }";
  const std::string dots = "PointSet { coord Coordinate { point [ 0 0 0, 3 0 0 ] } }";
  const Picture picture =
      Take(Shining("0 0 1", line) + Shining("0 1 0", dots), "--size 300x300 --direction front --background black");
  EXPECT_NEAR(BlueIn(picture, 90, 118, 150), 1.5, 0.3) << "at 12 + 276 / 3";
  EXPECT_NEAR(BlueIn(picture, 0, 300, 100), 1.5, 0.3) << "just the line";
  EXPECT_GT(picture.At(12, 150)[1], 200);
  EXPECT_GT(picture.At(287, 150)[1], 200);

  // A line in the plane of a surface is on it in its full width, from either side.
  const std::string plane = At("1 0 0", Shining("1 0 0", "Box { size 2 2 0 }"));
  for (const std::string from : {"front", "back", "3,0,1", "-3,0,1"}) {
    const Picture drawn = Take(Shining("0 0 1", line) + plane, "--size 200x200 --background black --direction " + from);
    EXPECT_NEAR(BlueIn(drawn, 0, 200, 100), 1.5, 0.3) << from;
  }
  for (const char* options : {"--background white", "--background black"}) {
    const std::string grey = std::string(options) == "--background white" ? "1 1 1" : "0 0 0";
    const Picture hard = Take(Shining(grey, line) + Shining(grey, dots), std::string("--size 100x100 ") + options);
    EXPECT_GT(hard.Content().Right, 50) << "white on white and black on black are seen";
  }
}

// One line on standard error, and a status, for each way in which a picture can't be made.
TEST_F(PictureTest, SaysWhyThereIsNoPicture) {
  const std::string cube = "Shape { geometry Box {} }";
  Folder.Write("out.PNG", "kept");
  const ToolOutput kept = Run(cube, "");
  EXPECT_EQ(kept.Status, 73);
  EXPECT_THAT(kept.Error, HasSubstr("it's there already; --force replaces it\n"));
  EXPECT_EQ(ReadWholeFile(OutPath()), "kept");

  const ToolOutput unseen =
      Run("Shape { appearance Appearance { material Material { transparency 1 } } geometry Box {} }", "");
  EXPECT_EQ(unseen.Status, 1);
  EXPECT_THAT(unseen.Error, HasSubstr("nothing to show: all of it is transparent\n"));

  const std::string path = (Folder.Path() / "scene.wrl").string();
  const ToolOutput jpeg = RunTool("picture " + path + " out.jpg");
  EXPECT_EQ(jpeg.Status, 64);
  EXPECT_EQ(jpeg.Error, "qelvrml: out.jpg: pictures are .png files\n");

  Folder.Write("scene.wrl", "#VRML V2.0 utf8\n" + cube);
  for (const char* lack :
       {"__EGL_VENDOR_LIBRARY_FILENAMES=/none ", "LIBGL_DRIVERS_PATH=/none ", "MESA_GL_VERSION_OVERRIDE=3.0 "}) {
    const std::string out = (Folder.Path() / "none.png").string();
    const ToolOutput output = RunTool("picture " + path + " " + out, lack);
    EXPECT_EQ(output.Status, 70) << lack;
    EXPECT_THAT(output.Error, StartsWith("qelvrml: can't make a picture: no OpenGL without a display ("));
    EXPECT_EQ(std::count(output.Error.begin(), output.Error.end(), '\n'), 1) << output.Error;
    EXPECT_FALSE(std::filesystem::exists(out));
  }
  EXPECT_EQ(Run(cube, "--force --size 64x48").Out, OutPath() + ": 64 x 48 pixels\n");
}

// Seen from the front, each box covers 44 x 44 of 64 x 48 pixels twice, so that 400 times all of them are 317 boxes.
TEST_F(PictureTest, TellsWhenThereIsTooMuchToDraw) {
  for (const int boxes : {300, 330}) {
    std::string scene;
    for (int i = 0; i < boxes; ++i) scene += "Shape { geometry Box {} }\n";
    const std::string rest = boxes < 317 ? "" : "; too much to draw, so what is farthest is left out";
    EXPECT_EQ(Run(scene, "--force --size 64x48 --direction front").Out, OutPath() + ": 64 x 48 pixels" + rest + "\n");
  }
}

}  // namespace
