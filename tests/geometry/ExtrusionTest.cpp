#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "qelvrml/geometry/CVRMLLoopIndexPair.h"
#include "qelvrml/platform/brixex/brixPointSorting.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "support/Model.h"

namespace {

const std::string SquareSection = "crossSection [ 1 1, 1 -1, -1 -1, -1 1, 1 1 ] ";
const std::string Upright = "spine [ 0 0 0, 0 1 0 ] ";

Model Sweep(const std::string& fields) { return Load20("Extrusion { " + fields + "}"); }
Model SweepOpen(const std::string& fields) { return Sweep(fields + "beginCap FALSE endCap FALSE "); }

// Straight down there is no axis from the neighbours: the turn is about the coordinate axis least aligned with +Y,
// which is X.
TEST(Extrusion, ASpineStraightDownTurnsOver) {
  const auto points = SweepOpen("crossSection [ 1 0, 0 1 ] spine [ 0 2 0, 0 0 0 ] ").Points(0);
  EXPECT_THAT(points[0], IsPoint(1, 2, 0));
  EXPECT_THAT(points[1], IsPoint(0, 2, -1));
}

TEST(Extrusion, ListsServeOneOrAll) {
  const std::string sweep = "crossSection [ 1 0, 0 1 ] spine [ 0 0 0, 0 1 0, 0 2 0 ] ";
  const auto one = SweepOpen(sweep + "scale [ 2 3 ] orientation 0 1 0 1.5707963 ").Points(0);
  EXPECT_THAT(one[4], IsPoint(0, 2, -2)) << "a quarter turn about Y carries +X to -Z";
  const auto early = SweepOpen(sweep + "scale [ 2 3, 4 5 ] orientation [ 0 1 0 0, 0 1 0 3.1415927 ] ").Points(0);
  EXPECT_THAT(early[0], IsPoint(2, 0, 0));
  EXPECT_THAT(early[2], IsPoint(-4, 1, 0));
  EXPECT_THAT(early[4], IsPoint(1, 2, 0)) << "the third section has scale 1 and no rotation";
  EXPECT_THAT(SweepOpen(sweep + "scale 2 3 ").Points(0)[0], IsPoint(1, 0, 0)) << "a bare pair is one value";
}

// The last tangent of a closed spine is the first one; the first doesn't look back over the seam.
TEST(Extrusion, AClosedSpine) {
  const auto points = SweepOpen("crossSection [ 1 0, 0 1 ] spine [ 0 0 0, 1 0 0, 1 1 0, 0 0 0 ] ").Points(0);
  ASSERT_EQ(points.size(), 8U);
  EXPECT_THAT(points[0], IsPoint(0, -1, 0));
  EXPECT_THAT(points[6], IsPoint(0, -1, 0));
}

TEST(Extrusion, DataThatIsMissingIsAWarning) {
  for (const std::string& fields : {SquareSection, Upright, std::string("crossSection [ 1 1 1 ] ") + Upright}) {
    const Model model = Load20("Box {} Extrusion { " + fields + "}");
    EXPECT_EQ(model.Classes(), "brixBox") << fields;
    EXPECT_EQ(model.Result, VRMLLoadWarnings);
    EXPECT_EQ(model.Parser->GetLastWarning(), VRMLWarningExtrusionData);
  }
}

TEST(Extrusion, StrangeSpinesAndSections) {
  EXPECT_EQ(SweepOpen(SquareSection + "spine 1 2 3 ").Points(0).size(), 5U) << "one point has the tangent +Y";
  EXPECT_EQ(SweepOpen(SquareSection + "spine [ 0 0 0, 0 0 0, 0 0 0 ] ").Points(0).size(), 15U);
  const Model point = Sweep("crossSection [ 1 1 ] " + Upright);
  EXPECT_EQ(point.Classes(), "CKelPolyMesh") << "no cap";
  EXPECT_EQ(point.Points(0).size(), 2U);
  EXPECT_EQ(point.Result, VRMLLoadFailed) << "the last cap's result is the node's";
  Sweep("crossSection [ 1 1, 2 2 ] " + Upright);
  brixFloatPointArray none;
  EXPECT_FALSE(CVRMLParser::GetExtrusionCrossSectionPoints(0, none, {}, {}, {}, {}, none));
  Sweep("crossSection [ 1e39 1, 2 2, 1 1e39, 1e39 1 ] spine [ 0 0 0, 1e39 1 0 ] ");
}

TEST(Cap, OpenAndClosedSections) {
  for (const std::string& section : {SquareSection, std::string("crossSection [ 1 1, 1 -1, -1 -1, -1 1 ] ")}) {
    const Model model = Sweep(section + Upright);
    ASSERT_EQ(model.Classes(), "CKelPolyMesh CKelPolyface CKelPolyface");
    for (const std::size_t cap : {1U, 2U}) {
      EXPECT_EQ(model.Triangles(cap), 2U);
      EXPECT_EQ(model.Points(cap).size(), 6U) << "triangles share no points";
      EXPECT_NEAR(model.Area(cap), 4.0, 1e-5);
    }
    EXPECT_THAT(model.Extents(1), IsPoint(2, 0, 2));
    EXPECT_THAT(model.Centre(2), IsPoint(0, 1, 0));
  }
}

// A square of 4 x 4 reached from its corner to a hole of 2 x 2, and on to a square of 1 x 1 in the hole; then two
// squares side by side; then lines that
// cross at (2/3 2/3), between two triangles of the areas 1/3 and 4/3.
TEST(Cap, HolesAndNeighbours) {
  struct Case {
    std::string Section;
    std::size_t Pieces;
    double Area;
    std::size_t Triangles;
  };
  const std::string outer = "-2 -2, 2 -2, 2 2, -2 2, -2 -2, ";
  const std::string hole = "-1 -1, -1 1, 1 1, 1 -1, -1 -1, ";
  const std::string island = "-0.5 -0.5, 0.5 -0.5, 0.5 0.5, -0.5 0.5, -0.5 -0.5, ";
  for (const auto& [section, pieces, area, triangles] :
       {Case{outer + hole, 1, 12, 8}, Case{outer + hole + island, 2, 13, 10},
        Case{outer + "5 5, 6 5, 6 6, 5 6, 5 5", 2, 17, 4}, Case{"0 0, 2 2, 2 0, 0 1, 0 0", 2, 5.0 / 3.0, 2},
        Case{"0 0, 1 0, 1 1, 1 1, 0 1, 0 0", 1, 1, 2}, Case{"0 0, 1 0, 2 0", 0, 0, 0}}) {
    const Model model = Sweep("crossSection [ " + section + " ] endCap FALSE " + Upright);
    ASSERT_EQ(model.Size(), 1 + pieces) << section;
    double sum = 0.0;
    std::size_t count = 0;
    for (std::size_t i = 1; i <= pieces; ++i) {
      sum += model.Area(i);
      count += model.Triangles(i);
    }
    EXPECT_NEAR(sum, area, 1e-4) << section;
    EXPECT_EQ(count, triangles) << section;
  }
}

TEST(Cap, ATiltedCapLiesInItsPlane) {
  const Model model = Sweep(SquareSection + "endCap FALSE spine [ 1 2 3, 2 3 4 ] ");
  ASSERT_EQ(model.Size(), 2U);
  EXPECT_NEAR(model.Area(1), 4.0, 1e-4);
  for (const brixFloatPoint& p : model.Points(1)) EXPECT_NEAR(p.x + p.y + p.z, 6.0, 1e-4);
  EXPECT_FALSE(model.Parser->DefineExtrusionCap(1, 3, brixFloatPointArray(5))) << "a row that isn't there";
}

class LoopParser : public CVRMLParser {
public:
  using CVRMLParser::CreateIndexPair;
  using CVRMLParser::DetermineLoopsFromPoints;
  using CVRMLParser::SortIndexPairList;
};

// Letters are points; each string of the result is a loop, in the order in which they are found.
TEST(Cap, LoopsOfARow) {
  struct Case {
    std::string Row;
    std::vector<std::string> Loops;
  };
  for (const auto& [row, expected] :
       {Case{"ABCDA", {"ABCDA"}}, Case{"ABCADEFD", {"DEFD", "ABCA"}}, Case{"ABCDECFA", {"CDEC", "ABFA"}},
        Case{"ABCD", {"ABCDA"}}, Case{"ABBCA", {"ABCA"}}, Case{"ABCADEA", {"ADEA", "ABC"}}, Case{"AB", {"ABA"}},
        Case{"A", {}}}) {
    brixFloatPointArray points;
    for (const char letter : row) points.Append({static_cast<float>(letter), static_cast<float>(letter % 3), 0});
    CKelList loops;
    LoopParser::DetermineLoopsFromPoints(points, loops);
    std::vector<std::string> found;
    for (CBasicListElement* element = loops.GoToFirst(); element; element = element->Next) {
      const std::unique_ptr<brixFloatPointArray> loop(static_cast<brixFloatPointArray*>(element->Data));
      std::string letters;
      for (const brixFloatPoint& point : loop->View()) letters += static_cast<char>(point.x);
      found.push_back(letters);
    }
    EXPECT_EQ(found, expected) << row;
  }
}

/// The told order of pairs: a quicksort around the last pair's start, from the largest to the smallest.
void SortAsTold(std::vector<std::pair<int, int>>& pairs, int first, int last) {
  if (last <= first) return;
  const auto at = [&pairs](int place) -> std::pair<int, int>& { return pairs[static_cast<std::size_t>(place)]; };
  const int pivot = at(last).first;
  int i = first - 1;
  int j = last;
  std::pair<int, int> moved;
  do {
    do ++i;
    while (i != last && at(i).first > pivot);
    do --j;
    while (j != first && at(j).first < pivot);
    moved = at(i);
    at(i) = at(j);
    at(j) = moved;
  } while (j > i);
  at(j) = at(i);
  at(i) = at(last);
  at(last) = moved;
  SortAsTold(pairs, first, i - 1);
  SortAsTold(pairs, i + 1, last);
}

TEST(Cap, PairsOfEqualStarts) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::pair<int, int>> expected;
    CKelList pairs;
    for (int i = 0; i < 1 + round % 20; ++i) {
      const int start = static_cast<int>(random() % 4);
      expected.emplace_back(start, 100 + i);
      LoopParser::CreateIndexPair(pairs, start, 100 + i);
    }
    LoopParser::SortIndexPairList(pairs, 0, pairs.GetCount() - 1);
    SortAsTold(expected, 0, static_cast<int>(expected.size()) - 1);
    std::vector<std::pair<int, int>> sorted;
    for (CBasicListElement* element = pairs.GoToFirst(); element; element = element->Next) {
      const std::unique_ptr<CVRMLLoopIndexPair> pair(static_cast<CVRMLLoopIndexPair*>(element->Data));
      sorted.emplace_back(pair->GetStart(), pair->GetEnd());
    }
    ASSERT_EQ(sorted, expected) << round;
  }
}

TEST(Cap, Coinciding) {
  const auto order = [](const std::vector<brixFloatPoint>& points) {
    brixFloatPointArray array;
    array.Assign(points);
    brixIntArray sorted;
    EXPECT_EQ(SortPointArrayForProximity(array, sorted), !points.empty());
    return std::vector<int>(sorted.View().begin(), sorted.View().end());
  };
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(order({}), std::vector<int>());
  EXPECT_EQ(order({{5, 0, 0}, {1, 0, 0}, {5, 0, 0}, {nan, 0, 0}, {1, 0, 0}, {nan, 0, 0}}),
            (std::vector<int>{0, 2, 1, 4, 3, 5}));
  // Within the tolerance across the border of a cell, through a third point, and above the range where floats are that
  // close.
  EXPECT_EQ(order({{0.9999995F, 0, 0}, {7, 0, 0}, {1.0000003F, 0, 0}}), (std::vector<int>{0, 2, 1}));
  EXPECT_EQ(order({{0, 0, 0}, {9, 9, 9}, {1.6e-6F, 0, 0}, {0.8e-6F, -0.5e-6F, 0.5e-6F}}),
            (std::vector<int>{0, 2, 3, 1}));
  EXPECT_EQ(order({{1e30F, 0, 0}, {3, 0, 0}, {1e30F, 0, 0}, {64.0F, 0, 0}, {64.000008F, 0, 0}}),
            (std::vector<int>{0, 2, 1, 3, 4}));
}

}  // namespace
