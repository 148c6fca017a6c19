#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Model.h"

namespace {

// What surrounds it doesn't matter: the cube behind is read.
TEST(Dispatch, WhatIsUnknownIsPassedOver) {
  for (const std::string scene :
       {"Unknown { deep { Sphere {} } Sphere {} } Cube {}", "DEF name unknown Cube {}", "{ } Cube {}", "{ { } Cube {}",
        "word 1 \"text\" TRUE ] ) ( Cube {}", "PerspectiveCamera { position 0 0 0 } Cube {}",
        "Info { string \"} {\" } Cube {}", "Info \"text\" { } Cube {}",
        "DEF n Normal { vector [ 0 0 1 ] } USE n Cube {}", "NULL Cube {}", "[ Rotation {} Cube {} ]",
        "AsciiText { string [ \"a\", \"b\" ] } Cube {}", "DEF c SpotLight {} USE c Cube {}", "DEF Cube Cube {}"}) {
    const Model model = Load(scene);
    EXPECT_EQ(model.Classes(), "brixBox") << scene;
    EXPECT_EQ(model.Result, VRMLLoadOK) << scene;
  }
}

TEST(Dispatch, AFailureEndsOnlyItsStatement) {
  EXPECT_EQ(Load("Separator { Rotation {} Cube {} } Sphere {}").Classes(), "brixBox brixSphere");
  EXPECT_EQ(Load("Separator { Separator { Rotation {} } Cube {} } Sphere {}").Classes(), "brixBox brixSphere");
}

TEST(Dispatch, AStrayBraceClosesTheRoot) {
  EXPECT_EQ(Load("Cube {} } Sphere {}").Classes(), "brixBox");
  EXPECT_EQ(Load("Separator { Cube {} } } Sphere {} DEF a Separator { Cone {} } USE a").Classes(),
            "brixBox brixCone brixDisk")
      << "a separator opens a scope of the world again, a USE needs one";
}

TEST(Dispatch, SeparatorsTakeTheirHints) {
  for (const std::string fields : {"renderCaching TRUE", "renderCulling AUTO", "renderCulling TRUE renderCaching FALSE",
                                   "renderCaching ON renderCulling OFF"}) {
    EXPECT_EQ(Load("Separator { " + fields + " Cube {} } Sphere {}").Classes(), "brixBox brixSphere") << fields;
  }
  EXPECT_EQ(Load("Separator").Result, VRMLLoadFailed);
}

// Behind a DEF what is skipped is parsed with its effects off: no object, no name.
TEST(Dispatch, SkippingBehindADefHasNoEffect) {
  const Model model = Load("Transform { children DEF a Sphere {} } USE a Cube {}");
  EXPECT_EQ(model.Classes(), "brixBox");
  EXPECT_FALSE(model.Parser->GetSkippingBlock());
  EXPECT_TRUE(model.Parser->GetAllowDictionaryUpdate());
}

// What is passed over twice is parsed twice, with what that does to the colours in force; where an earlier pass ended
// says nothing about a reading that counts.
TEST(Dispatch, PassesOverAsOftenAsItStandsThere) {
  const Model instance = Load20(R"(Transform { children DEF k Group { children [
    PROTO Foo [] { Shape { geometry Sphere { radius 40 } } }
    Switch { whichChoice 1 choice [ DEF x Foo {} Shape { geometry Sphere { radius 30 } } ] } ] } })");
  ASSERT_EQ(instance.Classes(), "brixSphere");
  EXPECT_THAT(instance.Extents(0), IsPoint(60, 60, 60));
  EXPECT_TRUE(instance.Group("k"));

  const Model colours = Load20(R"(Transform { children DEF x Group { children [
    Shape { appearance Appearance { material Material { diffuseColor 1 0 0 } } geometry Sphere { radius 32 } }
    Transform { children DEF y Group { children [
      Shape { geometry Sphere { radius 30 } }
      Shape { appearance Appearance { material Material { diffuseColor 0 1 0 } } geometry Sphere { radius 31 } } ] } }
    ] } })");
  ASSERT_EQ(colours.Classes(), "brixSphere brixSphere brixSphere");
  EXPECT_THAT(colours.Extents(0), IsPoint(64, 64, 64));
  EXPECT_THAT(colours.Diffuse(0), IsColour(1, 0, 0));
  EXPECT_THAT(colours.Diffuse(1), IsColour(0, 1, 0)) << "left by passing over the group";
  EXPECT_THAT(colours.Diffuse(2), IsColour(0, 1, 0));
}

// A keyword that is dropped without a block behind it takes nothing else with it.
TEST(Dispatch, DroppedKeywordsWithoutABlock) {
  for (const std::string word : {"PointLight", "SpotLight NULL", "Normal NULL", "FontStyle"}) {
    EXPECT_EQ(Load20("Group { children [ " + word + " Box {} ] } Sphere {}").Classes(), "brixBox brixSphere") << word;
  }
}

// Both sides of the bounds on nesting: each statement inside brackets takes one more call.
TEST(Dispatch, DeepNestingIsScannedPast) {
  const auto nested = [](int depth, const std::string& inside) {
    std::string open;
    std::string close;
    for (int i = 0; i < depth; ++i) open += "[ ", close += "] ";
    return open + inside + close;
  };
  EXPECT_EQ(Load(nested(499, "Cube {} ") + "Sphere {}").Classes(), "brixBox brixSphere");
  EXPECT_EQ(Load(nested(500, "Cube {} ") + "Sphere {}").Classes(), "brixSphere");
  EXPECT_EQ(Load(nested(100000, "Cube {} ") + "Sphere {}").Classes(), "brixSphere");
}

TEST(Dispatch, TooManyOpenSeparatorsAreScannedPast) {
  const auto nested = [](int depth) {
    std::string open;
    std::string close;
    for (int i = 0; i < depth; ++i) open += "Separator { ", close += "} ";
    return open + "Cube {} " + close + "Sphere {}";
  };
  EXPECT_EQ(Load(nested(499)).Classes(), "brixBox brixSphere") << "with the root there are 500";
  EXPECT_EQ(Load(nested(500)).Classes(), "brixSphere");
  EXPECT_EQ(Load(nested(50000)).Classes(), "brixSphere");
  // The next node of a list behind the 500th is read as ever.
  for (const int depth : {499, 500}) {
    std::string open;
    std::string close;
    for (int i = 1; i < depth; ++i) open += "Separator { ", close += "} ";
    const std::string inner = "Transform { translation 9 0 0 } Separator { Cube {} } Sphere {} ";
    const Model model = Load(open + inner + close + "Cube {}");
    EXPECT_EQ(model.Classes(), depth == 499 ? "brixBox brixSphere brixBox" : "brixSphere brixBox");
    EXPECT_THAT(model.Centre(0), IsPoint(9, 0, 0)) << "this transform opens no scope";
  }
}

}  // namespace
