#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "qelvrml/platform/brix/polygons/LoopGroups.h"
#include "qelvrml/platform/brix/polygons/brixComplexPolygon.h"
#include "qelvrml/platform/brixex/CKelCpGenerator.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"

namespace {

struct Corner {
  float X;
  float Y;
};
using Loop = std::vector<Corner>;

Loop Rectangle(float x, float y, float width, float height) {
  return {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}, {x, y}};
}

Loop Square(float x, float y, float side) { return Rectangle(x, y, side, side); }

struct Polygons {
  std::size_t Count = 0;
  std::size_t Holes = 0;
  std::size_t Triangles = 0;
  double Area = 0.0;
};

// What the generator makes of loops; areas of triangles that don't run counter-clockwise count negative.
Polygons Generate(const std::vector<Loop>& loops, float scale = 1.0F) {
  CKelCpGenerator generator;
  for (const Loop& loop : loops) {
    brixFloatPointArray points;
    for (const auto& [x, y] : loop) points.Append({x * scale, y * scale, 0});
    generator.AddLoop(points);
  }
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
    const auto at = [&](int corner) {
      const brixFloatPoint& p =
          output.Points.View()[static_cast<std::size_t>(output.Corners.View()[static_cast<std::size_t>(corner)])];
      return brixFloatPoint(p.x / scale, p.y / scale, 0);
    };
    for (int i = 0; i < 3 * output.TriangleCount; i += 3) {
      result.Area += CrossProduct(brixVector(at(i), at(i + 1)), brixVector(at(i), at(i + 2))).z / 2.0;
    }
  }
  return result;
}

using Slope = std::pair<Corner, Corner>;  // from left to right

double HeightAt(const Slope& slope, double x) {
  const auto& [a, b] = slope;
  return a.Y + (double{b.Y} - a.Y) * (x - a.X) / (double{b.X} - a.X);
}

std::vector<Slope> SlopesOf(const std::vector<Loop>& loops) {
  std::vector<Slope> slopes;
  for (const Loop& loop : loops) {
    for (std::size_t i = 0; i < loop.size(); ++i) {
      const Corner& next = loop[(i + 1) % loop.size()];
      if (loop[i].X != next.X) slopes.push_back(loop[i].X < next.X ? Slope(loop[i], next) : Slope(next, loop[i]));
    }
  }
  return slopes;
}

// The area inside an odd number of loops: slices go from one corner or crossing to the next, by their middles.
double AlternatingArea(const std::vector<Loop>& loops) {
  const std::vector<Slope> slopes = SlopesOf(loops);
  std::vector<double> stops;
  for (const Slope& s : slopes) {
    stops.insert(stops.end(), {double{s.first.X}, double{s.second.X}});
    for (const Slope& t : slopes) {
      const double low = std::max(s.first.X, t.first.X);
      const double high = std::min(s.second.X, t.second.X);
      const double from = HeightAt(s, low) - HeightAt(t, low);
      const double to = HeightAt(s, high) - HeightAt(t, high);
      if (low < high && from * to < 0.0) stops.push_back(low + (high - low) * from / (from - to));
    }
  }
  std::sort(stops.begin(), stops.end());
  double area = 0.0;
  for (std::size_t i = 1; i < stops.size(); ++i) {
    const double middle = (stops[i - 1] + stops[i]) / 2.0;
    std::vector<double> heights;
    for (const Slope& s : slopes) {
      if (s.first.X < middle && middle < s.second.X) heights.push_back(HeightAt(s, middle));
    }
    std::sort(heights.begin(), heights.end());
    for (std::size_t k = 1; k < heights.size(); k += 2)
      area += (heights[k] - heights[k - 1]) * (stops[i] - stops[i - 1]);
  }
  return area;
}

// Areas are those of the slices; a polygon of n points with h holes has n + 2 h - 2 triangles.
TEST(ComplexPolygon, LoopsBecomePolygonsWithHoles) {
  Loop star;
  for (const float i : {0.0F, 2.0F, 4.0F, 1.0F, 3.0F, 0.0F})
    star.push_back({std::cos(i * 1.2566371F), std::sin(i * 1.2566371F)});
  const Loop square = Square(0, 0, 4);
  const struct {
    std::string Name;
    std::vector<Loop> Loops;
    std::size_t Count;
    std::size_t Holes;
    std::size_t Triangles = 0;  // where no corners are added or shared
  } rows[] = {
      {"one", {Square(0, 0, 10)}, 1, 0, 2},
      {"nested and beside", {Square(4, 4, 2), Square(0, 0, 10), Square(2, 2, 6), Square(20, 0, 1)}, 3, 1, 8 + 2 + 2},
      {"without its first corner again", {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}}, 1, 0, 2},
      {"holes", {Square(0, 0, 10), Square(1, 1, 2), Square(5, 5, 3), Square(1, 6, 2)}, 1, 3, 16 + 6 - 2},
      {"bow tie", {{{0, 0}, {2, 2}, {2, 0}, {0, 2}}}, 2, 0},
      {"pentagram", {star}, 5, 0},
      {"corner in corner", {Square(0, 0, 2), Square(1, 1, 2)}, 2, 0},
      {"across a side", {square, Square(3, 1, 2)}, 2, 0},
      {"a fifth of its height inside", {{{4, 4}, {1, 2}, {2, 1}}, {{0, 0}, {4, 0}, {0, 4}}}, 2, 0},
      {"along a side, inside", {square, Rectangle(0, 1, 2, 2)}, 1, 0},
      {"along a side, outside", {square, Rectangle(4, 0, 2, 4)}, 1, 0},
      {"half of a square out", {square, {{0, 0}, {4, 4}, {4, 0}}}, 1, 0},
      {"hole at a corner", {square, {{0, 0}, {2, 1}, {1, 2}}}, 1, 1},
      {"hole at an inward corner",
       {{{4, 4}, {2.5F, 3}, {3, 3}, {2, 0}, {0, 2}, {0, 3}}, {{1, 2}, {2.5F, 3}, {2, 3}}},
       1,
       1},
      {"points that rounding puts beside a side",
       {{{0, 0}, {3, 1}, {0, 4}}, {{1, 0.3333333F}, {2, 0.6666667F}, {1, 2}}},
       1,
       0},
      {"twice the same", {square, square}, 0, 0},
      {"out and back", {{{0, 0}, {4, 0}, {4, 4}, {4, 0}}}, 0, 0},
  };
  for (const auto& row : rows) {
    for (const float scale : {1.0F, 1e-6F}) {
      const Polygons result = Generate(row.Loops, scale);
      EXPECT_NEAR(result.Area, AlternatingArea(row.Loops), 1e-5) << row.Name << " at " << scale;
      EXPECT_EQ(result.Count, row.Count) << row.Name << " at " << scale;
      EXPECT_EQ(result.Holes, row.Holes) << row.Name << " at " << scale;
      if (row.Triangles > 0) {
        EXPECT_EQ(result.Triangles, row.Triangles) << row.Name << " at " << scale;
      }
    }
  }
}

// Each of the bars upright crosses each of those across in four points.
TEST(ComplexPolygon, TooManyCrossingsGiveNothing) {
  const std::size_t upright = 256;
  const std::size_t across = qelvrml::MaximumCrossings / (4 * upright);
  std::vector<Loop> loops(upright + across);
  for (std::size_t i = 0; i < upright; ++i) loops[i] = Rectangle(static_cast<float>(2 * i), -1, 1, 1000);
  for (std::size_t i = 0; i < across; ++i) loops[upright + i] = Rectangle(-1, static_cast<float>(2 * i), 800, 1);
  EXPECT_NEAR(Generate(loops).Area, static_cast<double>(upright * 1000 + across * 800 - 2 * upright * across), 1.0);
  loops.push_back(Rectangle(-1, static_cast<float>(2 * across), 800, 1));
  EXPECT_EQ(Generate(loops).Count, 0U);

  loops.resize(4000);
  for (std::size_t i = 0; i < loops.size(); ++i) {
    const auto x = static_cast<float>(i);
    loops[i] = {{x, 0}, {x + 0.5F, 0}, {x + 10000.5F, 10000}, {x + 10000, 10000}};
  }
  EXPECT_EQ(Generate(loops).Count, loops.size()) << "long bars side by side";
  loops.push_back({{0, 0}, {20000, 0.25F}, {20000, 0.5F}});
  EXPECT_EQ(Generate(loops).Count, 0U) << "whose boxes all lie in each other, behind one that crosses them";
}

// Corners of a coarse lattice, turned: loops run through the same points and along the same lines, or beside them by
// less than a float can tell. What the lines cut out is compared with a sum over thin upright slices.
TEST(ComplexPolygon, LoopsThatMeetEverywhereKeepTheirArea) {
  std::mt19937 random(7);
  const auto below = [&random](std::uint_fast32_t count) { return static_cast<float>(random() % count); };
  for (int round = 0; round < 2000; ++round) {
    const float angle = below(628) / 100.0F;
    std::vector<Loop> loops(1 + random() % 4);
    for (Loop& loop : loops) {
      for (std::size_t size = 3 + random() % 8; size > 0; --size) {
        const float x = below(5);
        const float y = below(5);
        loop.push_back({x * std::cos(angle) - y * std::sin(angle), x * std::sin(angle) + y * std::cos(angle)});
      }
    }
    EXPECT_NEAR(Generate(loops).Area, AlternatingArea(loops), 1e-4) << "round " << round;
  }
}

TEST(ComplexPolygon, LoopsWithoutAreaOrPlaceAreDropped) {
  const float infinite = std::numeric_limits<float>::infinity();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const Loop& loop : std::vector<Loop>{{},
                                            {{0, 0}, {1, 1}},
                                            {{5, 5}, {5, 5}, {5, 5}},
                                            {{0, 0}, {1, 1}, {2, 2}, {0, 0}},
                                            {{0, 0}, {infinite, 1}, {2, 2}},
                                            {{0, 0}, {1, nan}, {2, 2}}}) {
    EXPECT_EQ(Generate({loop}).Count, 0U);
    EXPECT_EQ(Generate({loop, Square(0, 0, 1)}).Area, 1.0);
  }
  EXPECT_EQ(brixComplexPolygon({}, {}).Evaluate(nullptr), brixEFailed);
}

}  // namespace
