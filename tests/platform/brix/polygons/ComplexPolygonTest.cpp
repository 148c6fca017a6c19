#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "qelvrml/platform/brix/polygons/brixComplexPolygon.h"
#include "qelvrml/platform/brixex/CKelCpGenerator.h"
#include "support/Arrays.h"

namespace {

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

}  // namespace
