#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Model.h"

namespace {

TEST(Solid, ConesStandOnTheirBase) {
  const Model model = Load("Cone { bottomRadius 3 height 4 side TRUE parts BOTTOM }");
  ASSERT_EQ(model.Classes(), "brixCone brixDisk");
  EXPECT_THAT(model.Extents(0), IsPoint(6, 4, 6));
  EXPECT_THAT(model.Centre(1), IsPoint(0, -2, 0));
  EXPECT_THAT(model.Extents(1), IsPoint(6, 0, 6));
}

TEST(Solid, PartsOfACone) {
  EXPECT_EQ(Load("Cone { bottom FALSE } Info {}").Classes(), "brixCone brixDisk") << "always closed in version 1.0";
  EXPECT_EQ(Load20("Cone { bottom FALSE }").Classes(), "brixCone");
  EXPECT_EQ(Load20("Cone { side FALSE }").Classes(), "brixDisk");
  EXPECT_EQ(Load20("Cone { side FALSE bottom FALSE }").Result, VRMLLoadFailed);
  EXPECT_EQ(Load("Cone { height 4 parts BOTTOM } Sphere {} Cube {}").Classes(), "brixCone brixDisk brixBox")
      << "the } is taken for the value of BOTTOM, and reading goes on to the next one";
}

TEST(Solid, BoxesInTheOrderOfTheirCorners) {
  const Model model = Load("Translation { translation 10 0 0 } Cube { width 2 height 4 depth 6 width word }");
  const std::vector<brixFloatPoint> points = model.Points(0);
  ASSERT_EQ(points.size(), 8U);
  EXPECT_THAT(points[0], IsPoint(9, -2, -3));
  EXPECT_THAT(points[2], IsPoint(11, 2, -3));
  EXPECT_THAT(points[7], IsPoint(9, 2, 3));
  EXPECT_NEAR(model.Area(0), 2 * (8 + 12 + 24), 1e-3);
  EXPECT_THAT(Load("Box { size 1 2 word }").Extents(0), IsPoint(1, 2, 2));
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
