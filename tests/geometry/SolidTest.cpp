#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "qelvrml/platform/brix/solids/brixCylinder.h"
#include "qelvrml/platform/brix/solids/brixDisk.h"
#include "qelvrml/platform/brix/solids/brixSphere.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
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

// Half the extent of an ellipsoid along an axis is the length of the matrix's column.
TEST(Solid, ExtentsAreExactUnderAnyMatrix) {
  const Model model = Load("Rotation { rotation 0 0 1 0.7853982 } Scale { scaleFactor 3 1 1 } Sphere { radius 2 }");
  const auto half = static_cast<float>(2.0 * std::sqrt((9.0 + 1.0) / 2.0));
  EXPECT_THAT(model.Extents(0), IsPoint(2 * half, 2 * half, 4));
  const Model tilted = Load("Rotation { rotation 0 0 1 0.7853982 } Cylinder { radius 1 height 4 }");
  // The ends of the axis are at 2 / sqrt 2, the rim adds 1 / sqrt 2 in x and y and 1 in z.
  const auto side = static_cast<float>(2.0 * 3.0 / std::numbers::sqrt2);
  EXPECT_THAT(tilted.Extents(0), IsPoint(side, side, 2));
}

TEST(Solid, ExtentsOfPartsOfSurfaces) {
  brixCylinder quarter;
  quarter.SetCylinder(1, 2, 1, {1, 0, 0}, 0, static_cast<float>(std::numbers::pi / 2));
  EXPECT_THAT(quarter.ComputeBBox().GetMinimum(),
              testing::Truly([](const brixFloatPoint& p) { return p.x > -1e-5F && p.y > -1e-5F; }));
  brixSphere cap;
  cap.SetSphere({}, {1, 0, 0}, {0, 0, 1}, 1, 0, 6.283186F, 0, static_cast<float>(std::numbers::pi / 6));
  EXPECT_THAT(cap.ComputeBBox().GetMinimum(), IsPoint(-0.5F, -0.5F, static_cast<float>(std::sqrt(0.75))));
  EXPECT_THAT(cap.ComputeBBox().GetMaximum(), IsPoint(0.5F, 0.5F, 1));
}

// Surface areas by their formulas: the chords lose less than the tolerance's share.
TEST(Solid, TrianglesCoverTheSurface) {
  constexpr double Pi = std::numbers::pi;
  const Model model =
      Load20("Sphere { radius 10 } Cylinder { radius 10 height 30 } Cone { bottomRadius 30 height 40 }");
  const auto area = [&model](std::size_t index) {
    brixEvaluation evaluation;
    EXPECT_EQ(model.Object(index).Evaluate(0.001, evaluation), brixEOK);
    double sum = 0.0;
    for (std::size_t i = 0; i < evaluation.Triangles.size(); i += 3) {
      const brixFloatPoint& a = evaluation.Points[evaluation.Triangles[i]];
      const brixVector u(a, evaluation.Points[evaluation.Triangles[i + 1]]);
      const brixVector normal = CrossProduct(u, brixVector(a, evaluation.Points[evaluation.Triangles[i + 2]]));
      EXPECT_GE(DotProduct(normal, evaluation.Normals[evaluation.Triangles[i]]), -1e-6) << "a triangle faces inward";
      sum += normal.Length() / 2.0;
    }
    return sum;
  };
  EXPECT_NEAR(area(0), 4 * Pi * 100, 1.0);
  EXPECT_NEAR(area(1), 2 * Pi * 10 * 30, 1.0);
  EXPECT_NEAR(area(2), Pi * 100, 1.0) << "bottom of the cylinder";
  EXPECT_NEAR(area(4), Pi * 30 * 50, 1.0) << "side of the cone";
}

TEST(Matrix, ShortestRotations) {
  const auto turned = [](const brixVector& from, const brixVector& to, const brixVector* axis) {
    return brixFloatPoint(from * CreateRotationMatrixForVectors(from, to, axis));
  };
  EXPECT_THAT(turned({0, 1, 0}, {1, 0, 0}, nullptr), IsPoint(1, 0, 0));
  EXPECT_THAT(turned({0, 1, 0}, {0, -1, 0}, nullptr), IsPoint(0, -1, 0));
  const brixVector z(0, 0, 1);
  const brixMatrix4x4 half = CreateRotationMatrixForVectors({0, 1, 0}, {0, -1, 0}, &z);
  EXPECT_THAT(brixFloatPoint(1, 0, 0) * half, IsPoint(-1, 0, 0));
  EXPECT_TRUE(IsIdentityMatrix(CreateRotationMatrixForVectors({0, 0, 0}, {0, 1, 0}, nullptr)));
  EXPECT_TRUE(IsIdentityMatrix(CreateRotationMatrixForNormalAngle({0, 0, 0}, 1.0)));
  EXPECT_THAT(brixFloatPoint(1, 0, 0) * CreateRotationMatrixForNormalAngle({0, 0, 5}, std::numbers::pi / 2),
              IsPoint(0, 1, 0));
}

TEST(Matrix, InversesAndAngles) {
  const brixMatrix4x4 m =
      GetScaleMatrix({2, 4, 8}) * CreateRotationMatrixForNormalAngle({1, 2, 3}, 0.5) * GetDisplacementMatrix({1, 2, 3});
  EXPECT_TRUE(IsIdentityMatrix(m * GetInverseMatrix(m)));
  EXPECT_TRUE(IsIdentityMatrix(GetInverseMatrix(GetScaleMatrix({1, 0, 1})))) << "singular";
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({1, 0, 0}, {0, 2, 0}), 90.0);
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({1, 0, 0}, {-3, 0, 0}), 180.0);
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({0, 0, 0}, {0, 2, 0}), 0.0);
}

}  // namespace
