#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qelvrml/platform/brix/polygons/brixComplexPolygon.h"
#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixDot.h"
#include "qelvrml/platform/brixex/CKelCpGenerator.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"
#include "qelvrml/platform/brixex/shapes/CKelTriangleStrip.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Model.h"

namespace {

brixFloatPointArray Points(const std::vector<brixFloatPoint>& points) {
  brixFloatPointArray array;
  array.Assign(points);
  return array;
}

brixFloatPointArray Square(float x, float y, float side, bool closed = true) {
  std::vector<brixFloatPoint> points = {{x, y, 0}, {x + side, y, 0}, {x + side, y + side, 0}, {x, y + side, 0}};
  if (closed) points.push_back(points.front());
  return Points(points);
}

struct Polygons {
  std::size_t Count = 0;
  std::size_t Holes = 0;
  std::size_t Triangles = 0;
  double Area = 0.0;
};

// What the generator makes of loops; areas of triangles that don't run counter-clockwise count negative.
Polygons Generate(const std::vector<brixFloatPointArray>& loops) {
  CKelCpGenerator generator;
  for (const brixFloatPointArray& loop : loops) generator.AddLoop(loop);
  generator.DetermineInteriorExteriorLoops();
  CKelList list;
  generator.CreateCompPolyList(list);
  Polygons result;
  for (CBasicListElement* element = list.GoToFirst(); element; element = element->Next) {
    const std::unique_ptr<brixComplexPolygon> polygon(static_cast<brixComplexPolygon*>(element->Data));
    brixComplexOutput output;
    polygon->Evaluate(&output);
    ++result.Count;
    result.Holes += polygon->GetHoles().size();
    result.Triangles += static_cast<std::size_t>(output.TriangleCount);
    const auto at = [&output](int corner) {
      return output.Points.View()[static_cast<std::size_t>(output.Corners.View()[static_cast<std::size_t>(corner)])];
    };
    for (int i = 0; i < 3 * output.TriangleCount; i += 3) {
      result.Area += CrossProduct(brixVector(at(i), at(i + 1)), brixVector(at(i), at(i + 2))).z / 2.0;
    }
  }
  return result;
}

// n + 2 h - 2 triangles for n points on an outline and h holes.
TEST(ComplexPolygon, NestedLoopsAlternate) {
  const Polygons plain = Generate({Square(0, 0, 10)});
  EXPECT_EQ(plain.Triangles, 2U);
  EXPECT_DOUBLE_EQ(plain.Area, 100.0);
  const Polygons nested = Generate({Square(4, 4, 2), Square(0, 0, 10, false), Square(2, 2, 6), Square(20, 0, 1)});
  EXPECT_EQ(nested.Count, 3U);
  EXPECT_EQ(nested.Holes, 1U);
  EXPECT_EQ(nested.Triangles, 8U + 2U + 2U);
  EXPECT_NEAR(nested.Area, 100 - 36 + 4 + 1, 1e-6);
  const Polygons holes = Generate({Square(0, 0, 10), Square(1, 1, 2), Square(5, 5, 3), Square(1, 6, 2)});
  EXPECT_EQ(holes.Count, 1U);
  EXPECT_EQ(holes.Holes, 3U);
  EXPECT_EQ(holes.Triangles, 16U + 6U - 2U);
  EXPECT_NEAR(holes.Area, 100 - 4 - 9 - 4, 1e-6);
}

TEST(ComplexPolygon, LoopsThatCrossOrHaveNoArea) {
  EXPECT_NEAR(Generate({Points({{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}})}).Area, 2.0, 1e-6)
      << "a symmetrical bow tie";
  EXPECT_EQ(Generate({Points({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {0, 0, 0}})}).Count, 0U) << "all on a line";
  EXPECT_EQ(Generate({Points({{0, 0, 0}, {1, 1, 0}}), Points({}), Points({{5, 5, 0}, {5, 5, 0}, {5, 5, 0}})}).Count,
            0U);
  const float infinite = std::numeric_limits<float>::infinity();
  EXPECT_EQ(Generate({Points({{0, 0, 0}, {infinite, 1, 0}, {2, 2, 0}}), Square(0, 0, 1)}).Count, 1U);
  EXPECT_EQ(brixComplexPolygon({}, {}).Evaluate(nullptr), brixEFailed);
}

TEST(Polygon, FacesThatAreNotFlat) {
  CKelPolygon polygon;
  polygon.SetPolyline(Points({{0, 0, 0}, {2, 0, 0.1F}, {2, 2, 0}, {0, 2, 0.1F}}), true);
  brixEvaluation evaluation;
  EXPECT_EQ(polygon.Evaluate(0, evaluation), brixEOK);
  EXPECT_EQ(evaluation.Triangles.size(), 6U);
  for (const brixVector& normal : evaluation.Normals) EXPECT_NEAR(normal.z, 1.0, 1e-6);
  polygon.SetPolyline(Points({{0, 0, 0}, {2, 0, 0}}), true);
  EXPECT_EQ(polygon.Evaluate(0, evaluation), brixEOK);
  EXPECT_EQ(evaluation.Segments, (std::vector<unsigned>{0, 1})) << "a line";
  polygon.SetPolyline({}, true);
  EXPECT_EQ(polygon.Evaluate(0, evaluation), brixEFailed);
}

// A face that winds clockwise faces the other way, whatever plane it lies in.
TEST(Polygon, NormalsFollowTheWinding) {
  for (const brixVector& axis : {brixVector(1, 0, 0), brixVector(0, 1, 0), brixVector(0, 0, 1), brixVector(1, 2, 3)}) {
    const brixMatrix4x4 turn = CreateRotationMatrixForVectors({0, 0, 1}, axis, nullptr);
    brixVector expected = axis;
    expected.Normalize();
    for (const bool backwards : {false, true}) {
      std::vector<brixFloatPoint> outline = {{0, 0, 0}, {3, 0, 0}, {3, 1, 0}, {1, 1, 0}, {1, 3, 0}, {0, 3, 0}};
      if (backwards) std::reverse(outline.begin(), outline.end());
      CKelPolygon polygon;
      polygon.SetPolyline(Points(outline), true);
      polygon.ApplyMatrixToGeometry(turn, brixTrue);
      brixEvaluation e;
      ASSERT_EQ(polygon.Evaluate(0, e), brixEOK);
      ASSERT_EQ(e.Triangles.size(), 12U);
      for (std::size_t i = 0; i < e.Triangles.size(); i += 3) {
        const brixFloatPoint& a = e.Points[e.Triangles[i]];
        const brixVector area =
            CrossProduct(brixVector(a, e.Points[e.Triangles[i + 1]]), brixVector(a, e.Points[e.Triangles[i + 2]]));
        EXPECT_GT(DotProduct(area, backwards ? -expected : expected), 0.0);
      }
    }
  }
}

TEST(PolyMesh, GridsAreCutToTheirPoints) {
  CKelPolyMesh mesh;
  mesh.SetPoints(brixFloatPointArray(7), 5, 3, false, false);
  EXPECT_EQ(mesh.GetRows(), 2);
  EXPECT_EQ(mesh.GetPoints().GetSize(), 6U);
  for (const int size : {0, -5}) {
    mesh.SetPoints(brixFloatPointArray(7), size, size, true, true);
    brixEvaluation evaluation;
    EXPECT_EQ(mesh.Evaluate(0, evaluation), brixEFailed);
  }
  mesh.SetPoints(brixFloatPointArray(12), 3, 4, true, true);
  brixEvaluation evaluation;
  mesh.Evaluate(0, evaluation);
  EXPECT_EQ(evaluation.Triangles.size(), 3U * 12U * 2U) << "joined in both directions";
}

TEST(Polyface, ListsThatBreakOff) {
  CKelPolyface face;
  brixIntArray runs;
  for (const int value : {3, 0, 1, 2, 4, 0, 1, 2}) runs.Append(value);
  face.SetPoints(Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}), runs, true);
  brixEvaluation evaluation;
  EXPECT_EQ(face.Evaluate(0, evaluation), brixEOK);
  EXPECT_EQ(evaluation.Triangles.size(), 6U);
}

TEST(TriangleStrip, GivenNormalsCountWhenTheyMatch) {
  brixVectorArray normals;
  for (int i = 0; i < 3; ++i) normals.Append({0, 0, -2});
  CKelTriangleStrip strip;
  strip.SetPoints(Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}), normals);
  brixEvaluation evaluation;
  strip.Evaluate(0, evaluation);
  EXPECT_EQ(evaluation.Normals[0].z, -1.0F);
  strip.SetPoints(Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}), normals);
  strip.Evaluate(0, evaluation);
  EXPECT_EQ(evaluation.Normals[0].z, 1.0F) << "computed";
}

TEST(Box, MirroredBoxesFaceOutward) {
  for (const float x : {1.0F, -1.0F}) {
    brixFloatPointArray corners;
    for (const float z : {0.0F, 1.0F}) {
      for (const auto& [px, py] :
           {std::pair(0.0F, 0.0F), std::pair(x, 0.0F), std::pair(x, 1.0F), std::pair(0.0F, 1.0F)})
        corners.Append({px, py, z});
    }
    brixBox box;
    box.SetBox(corners);
    brixEvaluation evaluation;
    box.Evaluate(0, evaluation);
    const brixFloatPoint middle(x / 2, 0.5F, 0.5F);
    for (std::size_t i = 0; i < evaluation.Points.size(); ++i) {
      EXPECT_GT(DotProduct(evaluation.Normals[i], brixVector(middle, evaluation.Points[i])), 0.0);
    }
  }
}

TEST(BBox, PointsThatAreNotNumbersStayOutside) {
  brixBBox box;
  box.Add(brixFloatPoint(std::numeric_limits<float>::quiet_NaN(), 0, 0));
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(box.GetLargestDimension(), 0.0F);
  box.Add(brixFloatPoint(-1, 2, 3));
  box.Add(brixBBox());
  box.Add(brixFloatPoint(1, 2, 8));
  EXPECT_EQ(box.GetLargestDimension(), 5.0F);
}

TEST(Group, OwnsWhatItTakesOver) {
  CKelGroup child;
  brixDot dot;
  CKelGroup group;
  EXPECT_FALSE(group.AddGroup(nullptr, brixTrue));
  EXPECT_FALSE(group.AddGroup(&group, brixTrue));
  EXPECT_FALSE(group.AddObject(nullptr, brixMatProps(), brixTrue));
  EXPECT_TRUE(group.AddGroup(&child, brixFalse));
  EXPECT_TRUE(child.AddObject(&dot, brixMatProps(), brixFalse));
  EXPECT_TRUE(group.AddObject(new brixDot, brixMatProps(), brixTrue));
  EXPECT_EQ(group.GetObjectAt(1), nullptr);
  EXPECT_EQ(group.GetGroupAt(-1), nullptr);
  dot.SetDot({4, 0, 0});
  group.RecursiveUpdateBBox();
  EXPECT_EQ(group.GetBBox().GetLargestDimension(), 4.0F);
  group.ApplyMatrixToGeometry(GetScaleMatrix({2, 2, 2}), brixTrue);
  EXPECT_EQ(dot.GetDot().x, 8.0F);
  EXPECT_NE(group.GetObjectAt(0)->GetId(), dot.GetId());
}

TEST(TextureManager, NumbersTexturesAndRefusesASecondRecord) {
  CKelTextureManager manager;
  EXPECT_EQ(manager.RegisterTexture(nullptr), -1);
  auto* texture = new CKelTexture;
  texture->SetFilename("a.png");
  EXPECT_EQ(manager.RegisterTexture(texture), 1);
  EXPECT_EQ(manager.RegisterTexture(new CKelTexture), 2);
  EXPECT_EQ(manager.GetTexture("a.png"), texture);
  EXPECT_EQ(manager.GetTexture("A.png"), nullptr);
  EXPECT_EQ(manager.GetTextureAt(2), nullptr);
  auto* record = new CKelTextureCoordinate;
  EXPECT_TRUE(manager.RegisterTextureCoordinate(record));
  EXPECT_FALSE(manager.RegisterTextureCoordinate(nullptr));
  CKelTextureCoordinate second;
  EXPECT_FALSE(manager.RegisterTextureCoordinate(&second)) << "the object has a texture";
}

}  // namespace
