#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
  EXPECT_EQ(model.World->GetTextureManager()->GetNumberTextures(), 1);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(Mapping(model, i)->GetTextureID(), 1);
  EXPECT_EQ(Mapping(model, 3)->GetScale().S, 2.0F);
  EXPECT_EQ(Mapping(model, 1)->GetTextureWrapS(), TextureWrapClamp);
  EXPECT_EQ(Mapping(model, 2)->GetTextureWrapS(), TextureWrapRepeat);
}

// Names that climb out of the folder lead nowhere but to their last component.
TEST_F(TextureTest, ImagesComeFromTheFolderOnly) {
  const Model model =
      LoadShapes(Textured("ImageTexture { url \"../../tests/scenes/tile.png\" }") +
                 Textured("ImageTexture { url \"/etc/passwd\" }") + Textured("ImageTexture { url [ ] }") +
                 Textured("ImageTexture { }") + Textured("ImageTexture { url \"..\\\\none.png\" }"));
  EXPECT_EQ(model.World->GetTextureManager()->GetNumberTextures(), 1);
  EXPECT_EQ(model.Size(), 5U) << "a shape without its image is a shape";
  std::vector<std::string> missing;
  for (const CBasicString& path : model.Parser->GetMissingFiles()) missing.emplace_back(path.GetNarrowText());
  EXPECT_THAT(missing, testing::Contains(Scenes + "/none.png"));
  EXPECT_THAT(missing, testing::Contains(Scenes + "/passwd"));
}

TEST_F(TextureTest, TheHostsPathComesFirst) {
  Model model;
  static std::string answer;
  answer = Folder.Write("host/tile.png", "");
  std::filesystem::copy_file(Scenes + "/dots.gif", answer, std::filesystem::copy_options::overwrite_existing);
  model.Parser->SetGetSupportFilePtr([](CBasicString /*current*/, CBasicString /*wanted*/, CBasicString& path) {
    path = answer.c_str();
    return 1;
  });
  LoadInto(model, Textured("ImageTexture { url \"tile.png\" }"));
  ASSERT_EQ(model.World->GetTextureManager()->GetNumberTextures(), 1);
  EXPECT_EQ(model.World->GetTextureManager()->GetTextureAt(0)->GetWidth(), 2);
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
