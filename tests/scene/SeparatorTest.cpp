#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "qelvrml/platform/brix/solids/brixDot.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Model.h"

namespace {

TEST(Separator, OnlyNamedScopesWithContentAreGroups) {
  const Model model = Load(R"(
    DEF outer Separator { Separator { Cube {} } DEF inner Separator { Sphere {} } DEF empty Separator { } Cone {} }
    DEF last Group { Cube {} })");
  ASSERT_EQ(model.World->GetNumGroups(), 2);
  const brixBaseGroup* outer = model.Group("outer");
  ASSERT_TRUE(outer);
  EXPECT_EQ(outer->GetNumObjects(), 3) << "the cube of the unnamed scope, the cone and its disk";
  EXPECT_EQ(outer->GetNumGroups(), 1);
  EXPECT_FALSE(model.Group("empty"));
  EXPECT_TRUE(model.Parser->FindObjectInDictionary("empty")) << "its entry stays";
  EXPECT_EQ(ToString(model.World->GetGroupAt(1)->GetGroupName()), "last");
}

// A group that a host has given to its separator is the host's, unless the separator says that it made it.
TEST(Separator, GroupsOfAHost) {
  CVRMLParser parser;
  CKelWorld world;
  parser.SetWorld(&world);
  CKelGroup own;
  auto* around = new CVRMLSeparator;
  around->SetGroup(&own);
  ASSERT_TRUE(parser.PushSeparator(around));
  EXPECT_EQ(around->GetGroup(), &own);
  auto* inner = new CVRMLSeparator;
  inner->SetCreatedGroup(true);
  ASSERT_TRUE(parser.PushSeparator(inner));
  EXPECT_EQ(inner->GetGroup(), &own) << "shared with the scope around it";
  inner->SetCreatedGroup(true);
  ASSERT_TRUE(parser.PopSeparator()) << "the group around isn't its own to give away";
  EXPECT_TRUE(parser.DefineSphere(1));
  EXPECT_EQ(own.GetNumObjects(), 1);
  EXPECT_TRUE(parser.PopSeparator());
  EXPECT_EQ(world.GetNumGroups(), 0);
}

TEST(Separator, NamesOfObjectsComeFromTheirOwnDef) {
  const Model model = Load("DEF g Separator { Cube {} DEF c Cylinder {} }");
  ASSERT_EQ(model.Size(), 4U);
  EXPECT_EQ(model.Name(0), "");
  for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(model.Name(i), "c");
}

TEST(Separator, ShininessHasTwoScales) {
  CVRMLSeparator separator;
  EXPECT_EQ(separator.GetShininess().View()[0], 0.5);
  separator.SetShininess(1.0);
  EXPECT_EQ(separator.GetShininess().View()[0], 1.0);
  separator.SetShininess(1.5);
  EXPECT_EQ(separator.GetShininess().View()[0], 0.01171875);
}

// Arrays share their storage until one is written, and behave like values all the same.
TEST(Separator, ArraysStayValues) {
  brixIntArray first(3);
  int& kept = first[0];
  brixIntArray second = first;
  kept = 7;
  EXPECT_EQ(second.View()[0], 0) << "a reference given out before the copy";
  brixIntArray third = second;
  EXPECT_EQ(third.View().data(), second.View().data());
  third[1] = 5;
  EXPECT_EQ(second.View()[1], 0);
  third = std::as_const(third);
  third.Realloc(2, brixTrue);
  third.Realloc(4, brixTrue);
  EXPECT_EQ(third.View()[1], 5);
  EXPECT_EQ(third.View()[3], 0);
  third.Realloc(-1, brixTrue);
  EXPECT_TRUE(third.IsEmpty());
}

class MaterialTest : public testing::Test {
protected:
  static brixChromaArray Colours(int count, bool specular = false) {
    brixChromaArray colours;
    for (int i = 0; i < count; ++i) colours.Append({specular ? 0.5F : 0.0F, static_cast<float>(i) / 10.0F, 0.0F, 1.0F});
    return colours;
  }
  static brixChroma Diffuse(const brixMatProps& material) {
    brixChroma colour;
    material.GetBackMaterial().GetDiffuse(colour);
    return colour;
  }
  CVRMLSeparator Separator;
};

// What a material says, once for each place that may see it; the ambient colour alone is the library's own.
TEST_F(MaterialTest, EveryValueReachesTheObjectsOfItsScope) {
  const Model model = Load(R"(
    Separator { Material { ambientColor 0.1 0.2 0.3 diffuseColor 0.4 0.5 0.6 specularColor 0.7 0.8 0.9
                           emissiveColor 0.15 0.25 0.35 shininess 0.75 transparency 0.125 }
      Cube {} Separator { Cube {} } Separator { Material { diffuseColor 1 0 0 } Cube {} } Cube {} }
    Cube {})");
  ASSERT_EQ(model.Size(), 5U);
  const auto expect = [&model](std::size_t index, const std::vector<testing::Matcher<const brixChroma&>>& colours,
                               float shininess) {
    for (const brixMaterial& side :
         {model.Object(index).GetMatProps().GetFrontMaterial(), model.Object(index).GetMatProps().GetBackMaterial()}) {
      brixChroma colour;
      side.GetAmbient(colour);
      EXPECT_THAT(colour, colours[0]) << "ambient " << index;
      side.GetDiffuse(colour);
      EXPECT_THAT(colour, colours[1]) << "diffuse " << index;
      side.GetSpecular(colour);
      EXPECT_THAT(colour, colours[2]) << "specular " << index;
      side.GetEmission(colour);
      EXPECT_THAT(colour, colours[3]) << "emission " << index;
      EXPECT_EQ(side.GetShininess(), shininess) << index;
    }
  };
  const auto none = [](float alpha) { return IsColour(0, 0, 0, alpha); };
  const auto ambient = [](float alpha) { return IsColour(0.2F, 0.2F, 0.2F, alpha); };
  for (const std::size_t index : {0U, 1U})
    expect(index,
           {ambient(0.875F), IsColour(0.4F, 0.5F, 0.6F, 0.875F), IsColour(0.7F, 0.8F, 0.9F, 0.875F),
            IsColour(0.15F, 0.25F, 0.35F, 0.875F)},
           96);
  expect(2, {ambient(1), IsColour(1, 0, 0), none(1), none(1)}, 64);
  expect(3,
         {ambient(0.875F), IsColour(1, 0, 0, 0.875F), IsColour(0.7F, 0.8F, 0.9F, 0.875F),
          IsColour(0.15F, 0.25F, 0.35F, 0.875F)},
         96);
  expect(4, {ambient(1), IsColour(1, 0, 0), none(1), none(1)}, 64);
}

TEST_F(MaterialTest, APositionBehindTheListIsWhite) {
  Separator.SetDiffuseColor(Colours(3));
  Separator.SetShininess(0.2);
  Separator.SetTransparency(0.25);
  EXPECT_THAT(Diffuse(Separator.GetMatProps(2)), IsColour(0, 0.2F, 0, 0.75F));
  EXPECT_THAT(Diffuse(Separator.GetMatProps(5)), IsColour(1, 1, 1, 0.75F));
  EXPECT_FLOAT_EQ(Separator.GetMatProps(5).GetFrontMaterial().GetShininess(), 25.6F);
  brixChroma ambient;
  Separator.GetMatProps(5).GetFrontMaterial().GetAmbient(ambient);
  EXPECT_THAT(ambient, IsColour(0.2F, 0.2F, 0.2F, 0.75F));
}

TEST_F(MaterialTest, OtherColoursStandInForTheDiffuseOne) {
  Separator.SetSpecularColor(Colours(1, true));
  Separator.SetEmissiveColor(Colours(2));
  EXPECT_THAT(Diffuse(Separator.GetMatProps(0)), IsColour(0.5F, 0, 0, 1));
  EXPECT_THAT(Diffuse(Separator.GetMatProps(1)), IsColour(0, 0.1F, 0, 1)) << "the specular list is too short";
}

TEST_F(MaterialTest, TextureCoordinatesServeOneObject) {
  CKelWorld world;
  CVRMLParser parser;
  parser.SetWorld(&world);
  Separator.SetParser(&parser);
  Separator.SetGroup(&world);
  Separator.SetDiffuseColor(Colours(1));
  Separator.GetTextureState().SetTextureID(1);
  Separator.GetTextureState().SetTextureCoordinates(brix2DFloatPointArray(3));
  Separator.AddObject(new brixDot);
  Separator.AddObject(new brixDot);
  ASSERT_EQ(world.GetNumObjects(), 2);
  const brixBaseObject* first = world.GetObjectAt(0);
  const brixBaseObject* second = world.GetObjectAt(1);
  EXPECT_THAT(Diffuse(first->GetMatProps()), IsColour(1, 1, 1, 1));
  EXPECT_THAT(Diffuse(second->GetMatProps()), IsColour(0, 0, 0, 1));
  const CKelTextureManager* textures = world.GetTextureManager();
  ASSERT_TRUE(textures->FindTextureCoordinate(first->GetId()));
  EXPECT_EQ(textures->FindTextureCoordinate(first->GetId())->GetCoordinates().GetSize(), 3U);
  EXPECT_FALSE(textures->FindTextureCoordinate(second->GetId()));
}

}  // namespace
