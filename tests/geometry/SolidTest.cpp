#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Model.h"

namespace {

TEST(Solid, PartsOfACone) {
  EXPECT_EQ(Load("Cone { bottom FALSE } Info {}").Classes(), "brixCone brixDisk") << "always closed in version 1.0";
  EXPECT_EQ(Load20("Cone { bottom FALSE }").Classes(), "brixCone");
  EXPECT_EQ(Load20("Cone { side FALSE }").Classes(), "brixDisk");
  EXPECT_EQ(Load20("Cone { side FALSE bottom FALSE }").Result, VRMLLoadFailed);
  EXPECT_EQ(Load("Cone { height 4 parts BOTTOM } Sphere {} Cube {}").Classes(), "brixCone brixDisk brixBox")
      << "the } is taken for the value of BOTTOM, and reading goes on to the next one";
}

TEST(Solid, CylindersWithTheirDisks) {
  const Model model = Load(R"(
    Material { diffuseColor [ 1 0 0, 0 1 0, 0 0 1 ] } MaterialBinding { value PER_PART }
    Scale { scaleFactor 2 3 1 } DEF c Cylinder { parts SIDES radius 1 height 2 } Cone {})");
  ASSERT_EQ(model.Classes(), "brixCylinder brixDisk brixDisk brixCone brixDisk");
  EXPECT_THAT(model.Extents(0), IsPoint(4, 6, 2));
  EXPECT_THAT(model.Centre(1), IsPoint(0, -3, 0));
  EXPECT_THAT(model.Centre(2), IsPoint(0, 3, 0));
  EXPECT_THAT(model.Extents(2), IsPoint(4, 0, 4)) << "the disks stay circles of the radius along X";
  EXPECT_THAT(model.Diffuse(0), IsColour(1, 0, 0));
  EXPECT_THAT(model.Diffuse(1), IsColour(0, 1, 0));
  EXPECT_THAT(model.Diffuse(2), IsColour(0, 0, 1));
  EXPECT_THAT(model.Diffuse(4), IsColour(1, 0, 0)) << "a cone isn't split";
  EXPECT_EQ(Load("Cylinder { radius 0 }").Result, VRMLLoadFailed);
  EXPECT_EQ(Load("Cylinder { height 0.0000001 } Cube {}").Classes(), "brixBox");
}

}  // namespace
