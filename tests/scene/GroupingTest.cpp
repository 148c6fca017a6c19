#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Model.h"

namespace {

TEST(Shape, TheOrderOfItsFieldsDoesNotMatter) {
  const std::string appearance = "appearance Appearance { material Material { diffuseColor 1 0 0 } } ";
  const std::string geometry = "geometry Box {} ";
  for (const std::string& fields :
       {appearance + geometry, geometry + appearance, "bboxSize 1 1 1 " + geometry + appearance,
        "appearance DEF a " + appearance.substr(11) + "geometry DEF g Box {} "}) {
    const Model model = Load20("Shape { " + fields + "} Shape { " + geometry + "}");
    ASSERT_EQ(model.Size(), 2U) << fields;
    EXPECT_THAT(model.Diffuse(0), IsColour(1, 0, 0));
    EXPECT_THAT(model.Diffuse(1), IsColour(1, 0, 0)) << "the colour that the last scope has left behind";
  }
}

// The end of the inner appearance is known when the outer one, which holds it, is passed over.
TEST(Shape, LongAppearancesInsideOneAnother) {
  const std::string text(500, ' ');
  const Model model = Load20("Shape { appearance Shape { appearance Shape { appearance x {" + text +
                             "} geometry Box {} } geometry Cone {} } geometry Sphere {} } Cylinder {}");
  EXPECT_EQ(model.Classes(), "brixBox brixCone brixDisk brixSphere brixCylinder brixDisk brixDisk");
}

TEST(Shape, EmptyAndUsedParts) {
  EXPECT_EQ(Load20("Shape { appearance NULL geometry Box {} } Sphere {}").Classes(), "brixBox brixSphere");
  EXPECT_EQ(Load20("Shape { geometry NULL } Sphere {}").Classes(), "brixSphere");
  EXPECT_EQ(Load20("Shape { } Sphere {}").Classes(), "brixSphere");
  const Model model = Load20(R"(
    DEF s Shape { appearance DEF red Appearance { material DEF m Material { diffuseColor 1 0 0 } } geometry Box {} }
    Shape { appearance Appearance { material USE m } geometry DEF b Box {} }
    Shape { geometry USE b } Transform { children USE s })");
  ASSERT_EQ(model.Size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_THAT(model.Diffuse(i), IsColour(1, 0, 0));
}

TEST(Shape, ATextureTransformBesideTheGeometryIsReadPast) {
  EXPECT_EQ(Load20("Shape { textureTransform TextureTransform { scale 2 2 } geometry Box {} } Sphere {}").Classes(),
            "brixBox brixSphere");
}

TEST(Shape, ANamedGeometryIsAGroup) {
  const Model model = Load20("DEF outer Group { children Shape { geometry DEF b Box {} } }");
  const brixBaseGroup* group = model.Group("b");
  ASSERT_TRUE(group);
  ASSERT_EQ(group->GetNumObjects(), 1);
  EXPECT_EQ(model.Name(0), "b");
  EXPECT_EQ(model.Group("outer")->GetGroupAt(0), group);
}

TEST(Group, ChildrenOfAllForms) {
  struct Case {
    std::string Scene;
    std::string Classes;
  };
  for (const auto& [scene, classes] :
       {Case{"Group { children [ Box {} Sphere {} ] bboxSize 1 1 1 } Box {}", "brixBox brixSphere brixBox"},
        Case{"Group { children Box {} children Sphere {} }", "brixBox brixSphere"}, Case{"Group { } Box {}", "brixBox"},
        Case{"Anchor { url \"x\" children Box {} } Sphere {}", "brixSphere"},
        Case{"WWWAnchor { children Box {} }", "brixBox"},
        Case{"Separator { children [ Box {} ] } Sphere {}", "brixBox brixSphere"},
        Case{"Collision { collide FALSE proxy Sphere {} children [ Box {} ] } Box {}", "brixBox brixBox"},
        Case{"Collision { children Box {} proxy NULL }", "brixBox"},
        Case{"Collision { proxy DEF p Sphere {} } Box {}", "brixBox"},
        Case{"Collision { proxy DEF p Sphere {} children Box {} } Sphere {}", "brixBox brixSphere"},
        Case{"Collision { addChildren Box {} removeChildren NULL } Sphere {}", "brixSphere"},
        Case{"LOD { center 0 0 0 range [ 1 2 ] level [ Box {} Sphere {} ] } Box {}", "brixBox brixSphere brixBox"},
        Case{"#VRML V1.0 ascii\nLOD { range [ 1 ] center 0 0 0 Cube {} Sphere {} } Cube {}",
             "brixBox brixSphere brixBox"}}) {
    const Model model = scene.starts_with("#") ? Load(scene) : Load20(scene);
    EXPECT_EQ(model.Classes(), classes) << scene;
  }
}

TEST(Switch, ThreeForms) {
  struct Case {
    std::string Scene;
    std::string Classes;
  };
  const std::string list = " choice [ Box {} DEF s Sphere {} Box {} ] } ";
  for (const auto& [scene, classes] :
       {Case{"Switch { whichChoice 1" + list, "brixSphere"},
        Case{"Switch { whichChoice 0" + list + "Sphere {}", "brixBox brixSphere"},
        Case{"Switch { whichChoice -1" + list + "USE s Box {}", "brixBox"}, Case{"Switch { whichChoice 9" + list, ""},
        Case{"Switch { choice [ Box {} Sphere {} ] whichChoice 1 } Box {}", "brixBox brixSphere brixBox"},
        Case{"#VRML V1.0 ascii\nSwitch { whichChild 1 Cube {} Sphere {} } Cube {}", "brixBox brixSphere brixBox"},
        Case{"#VRML V1.0 ascii\nSwitch { Cube {} Sphere {} } Cube {}", "brixBox brixSphere brixBox"},
        Case{"#VRML V1.0 ascii\nSwitch { whichChild 0 } Cube {}", "brixBox"}}) {
    const Model model = scene.starts_with("#") ? Load(scene) : Load20(scene);
    EXPECT_EQ(model.Classes(), classes) << scene;
    EXPECT_NE(model.Result, VRMLLoadFailed) << scene;
  }
  const Model inScope =
      Load20("Group { children Switch { whichChoice 0 choice [ Transform { translation 1 0 0 } ] } } Box {}");
  EXPECT_THAT(inScope.Centre(0), IsPoint(0, 0, 0));
}

}  // namespace
