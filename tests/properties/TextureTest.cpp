#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <clocale>
#include <utility>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Model.h"

namespace {

const std::string Scenes = QELVRML_TEST_SCENES;

class TextureTest : public testing::Test {
protected:
  /// Loads shapes with the folder of the test scenes as the place of the images.
  Model LoadShapes(const std::string& scene) {
    Model model;
    LoadInto(model, scene);
    return model;
  }
  void LoadInto(Model& model, const std::string& scene) {
    if (model.World->GetTextureManager()) model.World->GetTextureManager()->AddAlternatePath(Scenes.c_str());
    model.Result = model.Parser->Parse(model.World.get(), Folder.Write("s.wrl", "#VRML V2.0 utf8\n" + scene).c_str());
    CheckModel(*model.World);
  }
  static std::string Textured(const std::string& texture, const std::string& more = "") {
    return "Shape { appearance Appearance { material Material { diffuseColor 1 0 0 transparency 0.5 } texture " +
           texture + " " + more +
           "} geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 1 2 ] "
           "texCoord TextureCoordinate { point [ 0 0, 1 0, 0 1 ] } } } ";
  }
  static const CKelTextureCoordinate* Mapping(const Model& model, std::size_t index) {
    return model.World->GetTextureManager()->FindTextureCoordinate(model.Object(index).GetId());
  }
  static int Count(const Model& model) { return model.World->GetTextureManager()->GetNumberTextures(); }
  static std::vector<int> Pixel(const CKelTexture& texture, int index) {
    const SKelTexturePixel& p = texture.GetPixelArray()[index];
    return {p.Red, p.Green, p.Blue, p.Alpha};
  }
  TemporaryFolder Folder;
};

TEST_F(TextureTest, ATextureLiesOnItsObject) {
  const Model model =
      LoadShapes(Textured("ImageTexture { url [ \"tile.png\" \"none.png\" ] repeatS FALSE }",
                          "textureTransform TextureTransform { rotation 3.14159265 scale 2 3 center 1 1 }") +
                 Textured("ImageTexture { url \"images\\\\TILE.PNG\" repeatT FALSE }") + "Box {}");
  ASSERT_EQ(model.Size(), 3U);
  const CKelTextureManager& textures = *model.World->GetTextureManager();
  ASSERT_EQ(textures.GetNumberTextures(), 2) << "names are compared as they are resolved";
  ASSERT_TRUE(Mapping(model, 0));
  EXPECT_EQ(Mapping(model, 0)->GetTextureID(), 1);
  EXPECT_EQ(Mapping(model, 0)->GetTextureWrapS(), TextureWrapClamp);
  EXPECT_EQ(Mapping(model, 0)->GetTextureWrapT(), TextureWrapRepeat);
  EXPECT_NEAR(Mapping(model, 0)->GetRotation(), 180.0, 1e-5);
  EXPECT_EQ(Mapping(model, 0)->GetScale().T, 3.0F);
  EXPECT_EQ(Mapping(model, 0)->GetCoordinates().GetSize(), 3U);
  EXPECT_EQ(Mapping(model, 1)->GetTextureWrapT(), TextureWrapClamp);
  EXPECT_FALSE(Mapping(model, 2));
  EXPECT_THAT(model.Diffuse(0), IsColour(1, 1, 1, 1));
  EXPECT_THAT(model.Diffuse(2), IsColour(1, 0, 0, 1)) << "the colour that the last shape has left behind";
}

TEST_F(TextureTest, SharedByNameAndByUse) {
  const Model model = LoadShapes(
      Textured("DEF t ImageTexture { url \"tile.png\" repeatS FALSE }") + Textured("USE t") + "DEF s " +
      Textured("ImageTexture { url \"tile.png\" }", "textureTransform TextureTransform { scale 2 2 }") + "USE s");
  EXPECT_EQ(Count(model), 1);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(Mapping(model, i)->GetTextureID(), 1);
  EXPECT_EQ(Mapping(model, 3)->GetScale().S, 2.0F);
  EXPECT_EQ(Mapping(model, 1)->GetTextureWrapS(), TextureWrapClamp);
  EXPECT_EQ(Mapping(model, 2)->GetTextureWrapS(), TextureWrapRepeat);
}

// A texture has its name, and within a load all names of one file have its pixels, until one of them is written.
TEST_F(TextureTest, AnImageIsReadOnceWhateverItsNames) {
  std::filesystem::copy_file(Scenes + "/tile.png", Folder.Path() / "tile.png");
  std::filesystem::create_hard_link(Folder.Path() / "tile.png", Folder.Path() / "other.png");
  std::filesystem::create_symlink(Folder.Path(), Folder.Path() / "sub");
  Folder.Write("bad.png", "no image");
  Model model;
  model.World->GetTextureManager()->AddAlternatePath(Folder.Path().c_str());
  std::string scene;
  for (const char* name : {"././tile.png", "tile.png", "TILE.PNG", "sub/tile.png", "other.png", "bad.png", "BAD.png"})
    scene += Textured(std::string("ImageTexture { url \"") + name + "\" }");
  LoadInto(model, scene);
  const CKelTextureManager& textures = *model.World->GetTextureManager();
  ASSERT_EQ(textures.GetNumberTextures(), 4) << "steps that lead nowhere are no part of a name";
  const auto pixels = [&](int index) { return textures.GetTextureAt(index)->GetPixelArray(); };
  for (int i = 1; i < 4; ++i) EXPECT_EQ(pixels(i), pixels(0)) << i;
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(Mapping(model, i) != nullptr, i < 5) << i;
  CKelTexture& upper = *textures.GetTexture((Folder.Path() / "TILE.PNG").c_str());
  const std::vector<int> before = Pixel(*textures.GetTextureAt(0), 0);
  upper.GetPixelArray()[0] = {1, 2, 3, 4};
  EXPECT_EQ(Pixel(*textures.GetTextureAt(0), 0), before);
  EXPECT_EQ(Pixel(upper, 0), (std::vector{1, 2, 3, 4}));
  EXPECT_EQ(Pixel(upper, 1), Pixel(*textures.GetTextureAt(0), 1));
  LoadInto(model, Textured("ImageTexture { url \"other.png\" }") + Textured("ImageTexture { url \"sub/other.png\" }"));
  EXPECT_EQ(textures.GetNumberTextures(), 5);
  EXPECT_EQ(pixels(4), std::as_const(*textures.GetTexture((Folder.Path() / "other.png").c_str())).GetPixelArray())
      << "the file of a name that was known ahead of the load";
}

// A name of 4,096 characters is looked for, a longer one isn't, nor is it noted.
TEST_F(TextureTest, LongNamesLeadNowhere) {
  const std::string longest = "/" + std::string(4086, '/') + "/tile.png";
  ASSERT_EQ(longest.size(), 4096U);
  for (const std::string node : {"ImageTexture", "Inline"}) {
    const Model model = LoadShapes(Textured(node + " { url \"" + std::string(4096, 'x') + "\" }") +
                                   Textured(node + " { url \"" + std::string(4097, 'y') + "\" }"));
    ASSERT_EQ(model.Parser->GetMissingFiles().size(), 1U);
    EXPECT_EQ(model.Parser->GetMissingFiles()[0].GetAt(model.Parser->GetMissingFiles()[0].GetLength() - 1), u'x');
  }
  for (const auto& [name, count] : {std::pair(longest, 1), std::pair("/" + longest, 0)})
    EXPECT_EQ(Count(LoadShapes(Textured("ImageTexture { url \"" + name + "\" }"))), count);
}

// 65,536 files are asked for in a load, subfiles and images together, and each image once.
TEST_F(TextureTest, TheNumberOfFilesIsBounded) {
  std::string half;
  for (int i = 0; i < 32'767; ++i) half += "Inline{url\"a\"}ImageTexture{url\"" + std::to_string(i) + "\"}";
  half += "ImageTexture{url\"0\"}";
  for (const auto& [more, textures] :
       {std::pair("Inline{url\"a\"}", 1), std::pair("Inline{url\"a\"}Inline{url\"b\"}", 0)}) {
    const Model model = LoadShapes(half + more + Textured("ImageTexture { url \"tile.png\" }"));
    EXPECT_EQ(Count(model), textures);
  }
}

// Four images of 4096 x 4096 pixels take 20 steps a pixel and 20,000 a name, 1,342,257,280. A load has 1,200,000,000,
// and 500 for each byte that it reads.
TEST_F(TextureTest, ImagesPayForTheirDecoding) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = image.height = 4096;
  image.format = PNG_FORMAT_GRAY;
  std::string scene;
  std::size_t bytes = 0;
  for (int i = 0; i < 4; ++i) {
    const std::string name = std::to_string(i) + ".png";
    const std::string path = Folder.Write(name, "");
    ASSERT_TRUE(png_image_write_to_file(&image, path.c_str(), 0, std::string(4096 * 4096, '\0').data(), 0, nullptr));
    bytes += std::filesystem::file_size(path);
    scene += "ImageTexture { url \"" + name + "\" }\n";
  }
  const std::size_t needed = (1'342'257'280U - 1'200'000'000U) / 500U - bytes;
  for (const auto& [blanks, textures] : {std::pair(needed / 2, 3), std::pair(needed, 4)}) {
    Model model;
    model.World->GetTextureManager()->AddAlternatePath(Folder.Path().c_str());
    LoadInto(model, scene + std::string(blanks, ' '));
    EXPECT_EQ(Count(model), textures);
  }
}

// The list of them for the host ends at 4,194,304 characters.
TEST_F(TextureTest, TheListOfMissingFilesIsBounded) {
  std::string scene;
  for (int i = 1000; i < 2500; ++i) scene += "ImageTexture{url\"" + std::to_string(i) + std::string(4000, 'x') + "\"}";
  std::size_t characters = 0;
  const Model model = LoadShapes(scene);
  for (const CBasicString& path : model.Parser->GetMissingFiles())
    characters += static_cast<std::size_t>(path.GetLength());
  EXPECT_LE(characters, 4'194'304U);
  EXPECT_GT(characters, 4'194'304U - 4'096U - Scenes.size());
}

// Names of files know no locale: in this one the case of all letters of Unicode is known.
TEST_F(TextureTest, TheHostsPathComesFirstAndKeepsLettersBeyondAscii) {
  static std::string answer;
  std::filesystem::create_directory(Folder.Path() / "\xC3\x84");
  std::filesystem::copy_file(Scenes + "/dots.gif", Folder.Path() / "\xC3\x84/tile.png");
  answer = (Folder.Path() / "\xC3\x84/TILE.PNG").string();
  Model model;
  model.Parser->SetGetSupportFilePtr([](CBasicString /*current*/, CBasicString /*wanted*/, CBasicString& path) {
    path = answer.c_str();
    return 1;
  });
  const std::string earlier = std::setlocale(LC_ALL, nullptr);
  ASSERT_TRUE(std::setlocale(LC_ALL, "C.UTF-8"));
  LoadInto(model, Textured("ImageTexture { url \"tile.png\" }"));
  std::setlocale(LC_ALL, earlier.c_str());
  ASSERT_EQ(Count(model), 1);
  EXPECT_EQ(model.World->GetTextureManager()->GetTextureAt(0)->GetWidth(), 2) << "dots.gif, not the tile of the scenes";
}

// Names that climb out of the folder lead nowhere but to their last component.
TEST_F(TextureTest, ImagesComeFromTheFolderOnly) {
  const Model model =
      LoadShapes(Textured("ImageTexture { url \"../../tests/scenes/tile.png\" }") +
                 Textured("ImageTexture { url \"/etc/passwd\" }") + Textured("ImageTexture { url [ ] }") +
                 Textured("ImageTexture { }") + Textured("ImageTexture { url \"..\\\\none.png\" }"));
  EXPECT_EQ(Count(model), 1);
  EXPECT_EQ(model.Size(), 5U) << "a shape without its image is a shape";
  std::vector<std::string> missing;
  for (const CBasicString& path : model.Parser->GetMissingFiles()) missing.emplace_back(path.GetNarrowText());
  EXPECT_THAT(missing, testing::Contains(Scenes + "/none.png"));
  EXPECT_THAT(missing, testing::Contains(Scenes + "/passwd"));
}

TEST_F(TextureTest, WithoutAManagerTexturesArePassedOver) {
  Model model;
  model.World->SetTextureManager(nullptr);
  LoadInto(model, Textured("ImageTexture { url \"tile.png\" }"));
  EXPECT_EQ(model.Result, VRMLLoadOK);
  EXPECT_EQ(model.Size(), 1U);
}

TEST_F(TextureTest, PixelTextures) {
  struct Case {
    std::string Image;
    int Textures;
    std::vector<int> First;
  };
  for (const auto& [image, count, first] :
       {Case{"2 1 3 0xFF0000 0x00FF00", 1, {255, 0, 0, 0}}, Case{"1 1 4 0xFF000080", 1, {255, 0, 0, 0}},
        Case{"1 1 1 255", 0, {}}, Case{"0 5 3 1 2 3", 0, {}}, Case{"-1 -1 3 5", 0, {}},
        Case{"1 1 3 0x010203 0x040506 0x070809", 1, {1, 2, 3, 0}}, Case{"2 2 3 16711680.9", 1, {255, 0, 0, 0}},
        Case{"1 1 3 -1", 1, {255, 255, 255, 0}}, Case{"1 1 3 0x7FFFFFFF00000000", 1, {0, 0, 0, 0}},
        Case{"1 1 3 0x8000000000000000", 1, {255, 255, 255, 0}}, Case{"word 1 3 5", 0, {}},
        Case{"100000 100000 3 5", 1, {}}, Case{"2 2 3", 1, {0, 0, 0, 0}}}) {
    const Model model = LoadShapes(Textured("PixelTexture { repeatS FALSE image " + image + " }"));
    const CKelTextureManager& textures = *model.World->GetTextureManager();
    ASSERT_EQ(textures.GetNumberTextures(), count) << image;
    if (count == 0) continue;
    EXPECT_EQ(Mapping(model, 0)->GetTextureWrapS(), TextureWrapClamp) << image;
    EXPECT_EQ(textures.GetTextureAt(0)->GetPixelArray() == nullptr, first.empty()) << image;
    if (!first.empty()) {
      EXPECT_EQ(Pixel(*textures.GetTextureAt(0), 0), first) << image;
    }
  }
}

}  // namespace
