#include "qelvrml/parser/load/Budget.h"

#include <gtest/gtest.h>

#include <functional>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/CVRMLDictionarySolids.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "support/Model.h"

namespace {

brixFloatPointArray FivePoints() {
  brixFloatPointArray points;
  for (int i = 0; i < 5; ++i) points.Append({static_cast<float>(i), static_cast<float>(i * i), 0.0F});
  return points;
}

brixIntArray Indices(std::initializer_list<int> values) {
  brixIntArray array;
  for (const int value : values) array.Append(value);
  return array;
}

brixDoubleArray Heights(int count) {
  brixDoubleArray heights;
  for (int i = 0; i < count; ++i) heights.Append(i);
  return heights;
}

/// A load with an open scope.
struct Loading {
  Loading() {
    Parser.SetWorld(&World);
    Parser.DefineSeparator();
    Parser.DefineCoordinate3(FivePoints());
  }
  qelvrml::Budget& Made() { return qelvrml::ParserInternals::Load(Parser).Made; }

  CKelWorld World;
  CVRMLParser Parser;
  const qelvrml::LoadRun Run{Parser};
};

/// How many objects an operation makes that may make things for so many bytes. Its result tells whether it made any.
int MadeWithin(std::uint64_t bytes, const std::function<bool(CVRMLParser&)>& make) {
  Loading load;
  EXPECT_TRUE(load.Made().Spend(qelvrml::BytesMadeOfAnyFile - bytes, 0));
  const bool result = make(load.Parser);
  EXPECT_EQ(result, load.World.GetNumObjects() > 0);
  return load.World.GetNumObjects();
}

// Both sides of each price: what fits exactly is made, and for a byte less nothing is.
TEST(Budget, EveryNodePaysForWhatItMakes) {
  struct Case {
    const char* Name;
    std::uint64_t Cost;
    int Objects;
    std::function<bool(CVRMLParser&)> Make;
  };
  const std::vector<Case> cases = {
      {"box", 512 + 8 * 12, 1, [](CVRMLParser& p) { return p.DefineCube(1, 1, 1); }},
      {"sphere", 512, 1, [](CVRMLParser& p) { return p.DefineSphere(1); }},
      {"cone", 2 * 512, 2, [](CVRMLParser& p) { return p.DefineCone(1, 1, true, true); }},
      {"cylinder", 3 * 512, 3, [](CVRMLParser& p) { return p.DefineCylinder(1, 1); }},
      {"points", 4 * (512 + 12), 4, [](CVRMLParser& p) { return p.DefinePointSet(1, 1'000'000'000); }},
      {"strips", 512 + 5 * 12 + 4, 1, [](CVRMLParser& p) { return p.DefineTriangleStripSet(Indices({5})); }},
      {"faces", 4 * 4 + 512 + 3 * 12, 1,
       [](CVRMLParser& p) {
         return p.DefineIndexedSet(true, Indices({3, 0, 1, 2}), {}, {});
       }},
      {"lines", 5 * 4 + 2 * 512 + 3 * 12, 2,
       [](CVRMLParser& p) {
         return p.DefineIndexedSet(false, Indices({2, 0, 1, 1, 2}), {}, {});
       }},
      {"mesh", 512 + 6 * 12, 1, [](CVRMLParser& p) { return p.DefineElevationGrid(true, Heights(6), 2, 1, 3, 1); }},
      {"grid lines", 5 * 512 + 12 * 12, 5,
       [](CVRMLParser& p) { return p.DefineElevationGrid(false, Heights(6), 2, 1, 3, 1); }},
      {"replay", 64 + 512 + 8 * 12, 1,
       [](CVRMLParser& p) {
         CVRMLDictionaryCube cube;
         return p.ServiceDictionaryObject(&cube);
       }},
      {"replayed points", 64 + 5 * (512 + 12), 5,
       [](CVRMLParser& p) {
         CVRMLDictionaryPointSet set;
         set.SetNumPoints(1'000'000'000);
         return p.ServiceDictionaryObject(&set);
       }},
  };
  for (const Case& node : cases) {
    EXPECT_EQ(MadeWithin(node.Cost, node.Make), node.Objects) << node.Name;
    EXPECT_EQ(MadeWithin(node.Cost - 1, node.Make) + MadeWithin(0, node.Make), 0) << node.Name;
  }
  const auto stripsInTheSamePoints = [](CVRMLParser& p) {
    const bool first = p.DefineTriangleStripSet(Indices({5}));
    return p.DefineTriangleStripSet(Indices({5})) || first;
  };
  EXPECT_EQ(MadeWithin(512 + 5 * 12 + 4 + 512 + 4, stripsInTheSamePoints), 2);
  EXPECT_EQ(MadeWithin(512 + 5 * 12 + 4 + 512 + 3, stripsInTheSamePoints), 1);
}

TEST(Budget, GrowsWithTheInputAndTakesNothingThatIsTooMuch) {
  qelvrml::Budget budget;
  EXPECT_FALSE(budget.Spend(qelvrml::BytesMadeOfAnyFile + 1, 0));
  EXPECT_FALSE(budget.Spend(~std::uint64_t{0}, 0));
  EXPECT_TRUE(budget.Spend(qelvrml::BytesMadeOfAnyFile, 0));
  EXPECT_FALSE(budget.Spend(1, 0));
  budget.AddInput(2);
  EXPECT_TRUE(budget.Spend(512, 0));
  EXPECT_FALSE(budget.Spend(1, 0));
}

TEST(Budget, HostsOutsideALoadHaveNone) {
  CKelWorld world;
  CVRMLParser parser;
  parser.SetWorld(&world);
  EXPECT_TRUE(qelvrml::CanMake(parser, {.Points = ~std::uint64_t{0} / 100}));
}

// 1048577 lines cost about 560 MB: a second grid of them isn't made, and what comes behind it is.
TEST(Budget, ASmallFileCannotMultiplyItself) {
  const Model model = Load20(R"(
    DEF g ElevationGrid { solid FALSE xDimension 1 zDimension 1048576 xSpacing 1 zSpacing 1 height [ 0 ] }
    USE g USE g Box {})");
  EXPECT_EQ(model.Size(), 1048577U + 1U);
}

// What takes time is refused for want of steps alone, and behind it what takes fewer is made.
TEST(Budget, TimeCountsAsWellAsMemory) {
  Loading load;
  const std::uint64_t box = qelvrml::StepsOfAnObject + qelvrml::StepsOfASolid + 8 * qelvrml::StepsOfAPoint;
  EXPECT_TRUE(load.Made().Spend(0, qelvrml::StepsOfAnyFile - box));
  EXPECT_FALSE(load.Parser.DefineSphere(1));
  EXPECT_TRUE(load.Parser.DefineCube(1, 1, 1));
  EXPECT_FALSE(load.Parser.DefineCube(1, 1, 1));
  load.Made().AddInput(box / qelvrml::StepsOfAByte + 1);
  EXPECT_TRUE(load.Parser.DefineCube(1, 1, 1));
}

// A bow tie with wings of two sizes crosses itself, which is known when it is cut: its cap is paid behind that, or
// dropped with all that is left.
TEST(Budget, CrossingsOfACapPay) {
  const std::uint64_t bare = 5 * qelvrml::StepsOfACapCorner +
                             2 * (qelvrml::StepsOfAnObject + 3 * qelvrml::StepsOfAPoint + 4 * qelvrml::StepsOfAnIndex);
  const struct {
    float Turn;  // the third corner is before or behind the line from the second one to the fourth
    std::uint64_t Steps;
    int Objects;
  } rows[] = {{3, bare, 1}, {0, bare, 0}, {0, bare + 100'000, 2}};
  for (const auto& row : rows) {
    brixFloatPointArray outline;
    for (const brixFloatPoint& point : {brixFloatPoint(0, 0, 0), {3, 0, 3 - row.Turn}, {3, 0, row.Turn}, {0, 0, 1}})
      outline.Append(point);
    outline.Append({0, 0, 0});
    Loading load;
    EXPECT_TRUE(load.Made().Spend(0, qelvrml::StepsOfAnyFile - row.Steps));
    EXPECT_EQ(load.Parser.DefineExtrusionCap(0, 5, outline), row.Objects > 0);
    EXPECT_EQ(load.World.GetNumObjects(), row.Objects);
    EXPECT_EQ(load.Made().Spend(0, 1), row.Objects > 0);
  }
}

// The first reading of a file is its own payment; each later one is paid like expanded text.
TEST(Budget, AFileThatIsReadAgainPays) {
  const TemporaryFolder folder;
  const std::string text = "#VRML V2.0 utf8\n" + std::string(1'000'000, ' ') + "Box {}";
  const std::string path = folder.Write("part.wrl", text);
  const std::uint64_t readings = 1 + qelvrml::StepsOfAnyFile / (text.size() * qelvrml::StepsOfAnExpandedByte);
  Loading load;
  std::uint64_t done = 0;
  while (load.Parser.ParseSubfile(path.c_str())) ++done;
  EXPECT_GT(done, readings * 9 / 10);
  EXPECT_LE(done, readings + qelvrml::StepsOfAByte / qelvrml::StepsOfAnExpandedByte);
}

// What a file makes in its subfiles is paid together, and their bytes count.
TEST(Budget, SubfilesAddWhatTheyHold) {
  const TemporaryFolder folder;
  const std::string text = "#VRML V2.0 utf8\nSphere {} Sphere {}";  // 36 bytes: 9216
  const std::string path = folder.Write("part.wrl", text);
  Loading load;
  EXPECT_TRUE(load.Made().Spend(qelvrml::BytesMadeOfAnyFile, 0));
  EXPECT_FALSE(load.Parser.DefineSphere(1));
  EXPECT_TRUE(load.Parser.ParseSubfile(path.c_str()));
  int more = 0;
  while (load.Parser.DefineSphere(1)) ++more;
  EXPECT_EQ(more, static_cast<int>(text.size() * 256 / 512) - 2);
}

}  // namespace
