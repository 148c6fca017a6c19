#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "support/Model.h"

namespace {

const std::string Ten =
    "Coordinate3 { point [ 0 0 0, 1 0 0, 2 0 0, 3 0 0, 4 0 0, 5 0 0, 6 0 0, 7 0 0, 8 0 0, 9 0 0 ] } ";

TEST(PointSet, RangesOfTheCoordinates) {
  struct Case {
    std::string Fields;
    std::vector<float> X;
  };
  for (const auto& [fields, expected] :
       {Case{"startIndex 2 numPoints 3", {2, 3, 4}}, Case{"numPoints 0", {}}, Case{"startIndex 8 numPoints -7", {8, 9}},
        Case{"startIndex 99", {9}}, Case{"startIndex -5 numPoints 1", {0}},
        Case{"startIndex 8.9 numPoints 1e300", {8, 9}}}) {
    const Model model = Load(Ten + "Translation { translation 0 0 5 } PointSet { " + fields + " }");
    std::vector<float> x;
    for (std::size_t i = 0; i < model.Size(); ++i) {
      EXPECT_THAT(model.Points(i)[0], IsPoint(expected[i], 0, 5));
      x.push_back(expected[i]);
    }
    EXPECT_EQ(x, expected) << fields;
  }
  EXPECT_EQ(Load("PointSet { }").Result, VRMLLoadFailed) << "no coordinates";
}

TEST(PointSet, NestedNodesStayInForce) {
  const Model model =
      Load20("PointSet { coord Coordinate { point [ 1 1 1, 2 2 2 ] } color Color { color [ 0 1 0, 1 0 0 ] } } Box {}");
  ASSERT_EQ(model.Classes(), "brixDot brixDot brixBox");
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_THAT(model.Diffuse(i), IsColour(0, 1, 0)) << "the first colour, also behind the node";
}

// Two strips: 4 points make two triangles, 3 make one; the first strip covers a unit square.
TEST(TriangleStrip, StripsFollowOneAnother) {
  const Model model = Load(R"(Coordinate3 { point [ 0 0 0, 1 0 0, 0 1 0, 1 1 0, 5 0 0, 6 0 0, 5 1 0 ] }
    Translation { translation 0 0 3 } DEF t TriangleStripSet { numVertices [ 4, -1, 3 ] } USE t)");
  ASSERT_EQ(model.Classes(), "CKelMultipleTriangleStrip");
  EXPECT_EQ(model.Name(0), "") << "any field clears the name";
  EXPECT_EQ(model.Triangles(0), 3U);
  EXPECT_NEAR(model.Area(0), 1.5, 1e-5);
  EXPECT_THAT(model.Points(0)[0], IsPoint(0, 0, 3));
  brixEvaluation evaluation;
  model.Object(0).Evaluate(0, evaluation);
  for (const brixVector& normal : evaluation.Normals) EXPECT_NEAR(normal.z, 1.0, 1e-6);
}

// So small a model is scaled to another unit behind the load: there too, each set of coordinates is moved once.
TEST(TriangleStrip, SetsInTheSameCoordinatesShareThem) {
  const Model model = Load(R"(Coordinate3 { point [ 0 0 0, 1e-7 0 0, 0 1e-7 0 ] } TriangleStripSet { numVertices [ 3 ] }
    TriangleStripSet { numVertices [ 3 ] } Translation { translation 1e-7 0 0 } TriangleStripSet { numVertices [ 3 ] }
    Coordinate3 { point [ 0 0 0, 1e-7 0 0, 0 2e-7 0 ] } TriangleStripSet { numVertices [ 3 ] })");
  ASSERT_EQ(model.Size(), 4U);
  const auto points = [&](std::size_t i) {
    return dynamic_cast<const CKelMultipleTriangleStrip&>(model.Object(i)).GetPoints().View();
  };
  const float unit = points(0)[1].x;
  EXPECT_GT(unit, 1e-5F);
  EXPECT_EQ(points(0).data(), points(1).data());
  EXPECT_THAT(points(2)[1], IsPoint(2 * unit, 0, 0));
  EXPECT_THAT(points(3)[2], IsPoint(unit, 2 * unit, 0));
}

TEST(TriangleStrip, CountsAreCutToThePoints) {
  const Model model = Load(Ten +
                           "TriangleStripSet { numVertices [ 4 -3 2000000000 5 ] } TriangleStripSet { } "
                           "TriangleStripSet { numVertices 3 } }");
  ASSERT_EQ(model.Size(), 2U);
  const auto counts = dynamic_cast<const CKelMultipleTriangleStrip&>(model.Object(0)).GetPointCounts().View();
  EXPECT_THAT(std::vector<int>(counts.begin(), counts.end()), testing::ElementsAre(4, 0, 6, 0));
}

TEST(ElevationGrid, DimensionsAgainstHeights) {
  const auto points = [](const std::string& fields) {
    const Model model = Load20("ElevationGrid { xSpacing 1 zSpacing 1 " + fields + " }");
    return model.Size() == 0 ? 0 : model.Points(0).size();
  };
  EXPECT_EQ(points("xDimension 2.9 zDimension 2 height [ 1 2 3 4 5 6 ]"), 4U);
  EXPECT_EQ(points("xDimension 3 zDimension 3 height [ 1 ]"), 9U) << "missing heights are 0";
  EXPECT_EQ(points("xDimension 1024 zDimension 1024 height [ 1 ]"), 1048576U);
  EXPECT_EQ(points("xDimension 1024 zDimension 1025 height [ 1 ]"), 0U);
  EXPECT_EQ(points("xDimension 1e300 zDimension 1e300 height [ 1 ]"), 0U);
  EXPECT_EQ(points("xDimension 0.5 zDimension 2 height [ 1 ]"), 0U);
  EXPECT_EQ(points("xDimension -3 zDimension -3 height [ 1 ]"), 0U);
  EXPECT_EQ(points("xDimension 2 zDimension 2"), 0U) << "no heights";
  EXPECT_EQ(Load20("ElevationGrid { xDimension 2 zDimension 2 zSpacing 1 height [ 1 2 3 4 ] }").Size(), 0U)
      << "no spacing";
}

// height[i + j * xDimension], with the fraction: rows of 2.9 heights begin at 0, 2 and 5.
TEST(ElevationGrid, FractionsShiftTheHeights) {
  const Model model = Load20(
      "ElevationGrid { xDimension 2.9 zDimension 3 xSpacing 100 zSpacing 100 height [ 0 100 200 300 400 500 ] }");
  std::vector<float> heights;
  for (const brixFloatPoint& point : model.Points(0)) heights.push_back(point.y);
  EXPECT_THAT(heights, testing::ElementsAre(0, 200, 500, 100, 300, 0));
}

// Each of these lists would use up a good part of what a load may make if it were paid for.
TEST(ElevationGrid, OnlyTheListThatCountsIsPaidFor) {
  std::string lists;
  for (int i = 0; i < 200; ++i) lists += "height [ 1 2 3 ] ";
  const std::string blanks(2'500'000, ' ');  // the text is long enough for all heights
  EXPECT_EQ(
      Load20("ElevationGrid { xDimension 1000 zDimension 1000 xSpacing 1 zSpacing 1 " + lists + "}" + blanks).Size(),
      1U);
}

// Heights that stand behind the dimensions become points while they are read, those ahead of them are kept first.
TEST(ElevationGrid, TheOrderOfItsFieldsIsNothing) {
  struct Case {
    int Columns;
    int Rows;
    int Heights;
    const char* Behind = "";
  };
  for (const auto& [columns, rows, count, behind] :
       {Case{3, 4, 12}, Case{3, 4, 5}, Case{3, 4, 30}, Case{1, 40, 40}, Case{17, 33, 561}, Case{5, 50, 247},
        Case{16'390, 3, 49'170}, Case{16'384, 2, 20'000}, Case{3, 4, 12, "solid FALSE "}, Case{3, 4, 12, "zSpacing 7 "},
        Case{3, 4, 12, "xDimension 2 "}, Case{3, 4, 12, "xDimension 0 "}, Case{3, 4, 12, "xDimension 3.5 "}}) {
    std::string heights = "height [ ";
    for (int i = 0; i < count; ++i) heights += i % 7 == 3 ? "word " : std::to_string(i * 37 % 1000) + ".5, ";
    heights += "] ";
    const std::string shape =
        "xDimension " + std::to_string(columns) + " xSpacing 0.5 zSpacing 3 zDimension " + std::to_string(rows) + ' ';
    for (const std::string more : {"", "height [ ] ", "height [ 7 8 9 ] ", "height 5 "}) {
      for (const std::string name : {"", "DEF g "}) {
        const auto scene = [&](const std::string& fields) {
          return Load20("Transform { rotation 1 2 3 0.5 scale 2 3 4 translation 1 2 3 children " + name +
                        "ElevationGrid { " + fields + "} } USE g Box { }");
        };
        const Model piecewise = scene(heights + more + shape + behind);
        const Model atOnce = scene(shape + heights + more + behind);
        ASSERT_EQ(atOnce.Classes(), piecewise.Classes()) << behind << more << name;
        for (std::size_t i = 0; i < atOnce.Size(); ++i) {
          ASSERT_TRUE(atOnce.Points(i) == piecewise.Points(i)) << shape << behind << more << name << i;
          EXPECT_EQ(atOnce.Triangles(i), piecewise.Triangles(i));
        }
      }
    }
  }
}

// A nested node's } ends the grid, and what follows belongs to the enclosing node.
TEST(ElevationGrid, NestedNodesEndIt) {
  const std::string fields = "xDimension 2 zDimension 2 xSpacing 1 zSpacing 1 ";
  EXPECT_EQ(
      Load20("ElevationGrid { " + fields + "height [ 1 2 3 4 ] color Color { color [ 1 0 0 ] } solid TRUE } Box {}")
          .Classes(),
      "CKelPolyMesh");
}

}  // namespace
