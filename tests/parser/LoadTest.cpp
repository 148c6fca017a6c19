#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/Model.h"

namespace {

TEST(Load, ResultsOfWholeFiles) {
  struct Case {
    std::string Text;
    VRMLLoadResultTypes Result;
  };
  for (const auto& [text, result] :
       {Case{"#VRML V1.0 ascii\n", VRMLLoadOK}, Case{"#VRML V1.0 ascii\nunknown { Cube {} } word", VRMLLoadOK},
        Case{"#VRML V1.0 ascii\nRotation {} Rotation {}", VRMLLoadFailed},
        Case{"#VRML V1.0 ascii\nRotation {} Cube {}", VRMLLoadOK}, Case{"Cube {}", VRMLLoadFailed},
        Case{"", VRMLLoadFailed}}) {
    EXPECT_EQ(LoadBytes(text).Result, result) << text;
  }
  EXPECT_EQ(LoadFile("/no/such/file.wrl").Result, VRMLLoadOpenFailed);
  EXPECT_EQ(LoadFile("/").Result, VRMLLoadOpenFailed);
  CVRMLParser parser;
  EXPECT_EQ(parser.Parse(nullptr, "/no/such/file.wrl"), VRMLLoadOpenFailed);
}

// 2 x 100; 0.2 x 100 x 10; 0.00001 x 1000000 stays below 25; 25 isn't below 25.
TEST(Load, SmallModelsAreScaledUp) {
  struct Case {
    std::string Width;
    VRMLImageUnitsTypes Units;
    float Size;
  };
  for (const auto& [width, units, size] : {Case{"2", VRMLUnitsCentimeters, 200}, Case{"0.2", VRMLUnitsMillimeters, 200},
                                           Case{"0.00001", VRMLUnitsMicrons, 10}, Case{"25", VRMLUnitsMeters, 25}}) {
    const Model model = Load("Cube { width " + width + " height 0 depth 0 }");
    EXPECT_EQ(model.Units(), units) << width;
    EXPECT_FLOAT_EQ(model.World->GetBBox().GetLargestDimension(), size) << width;
  }
  EXPECT_EQ(Load("").Units(), VRMLUnitsMicrons) << "nothing is below 25 at every step";
}

std::vector<int>& Reports() {
  static std::vector<int> reports;
  return reports;
}

// Reported are the ends of the tokens that come next, but for those inside of what is passed over by a scan. Tokens are
// parted by one blank here, and a word in front of which a * stands is one that is passed over.
TEST(Load, ProgressByTheEndsOfTokens) {
  const auto numbers = [](std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += std::to_string(i % 5) + std::string(i % 7, '0') + ' ';
    return text;
  };
  for (const std::size_t count : {0U, 1U, 2U, 3U, 5U, 8U, 13U, 34U, 55U, 144U, 377U, 2584U, 30'000U}) {
    const std::string list = numbers(count);
    std::string passed;
    for (std::size_t i = 0; i < count; ++i) passed += "*x ";
    for (const std::string& words :
         {"Cube { } " + list, "Coordinate3 { point [ " + list + "] } PointSet { numPoints 2 }",
          "ShapeHints { " + passed + "} Cube { }",
          "Info { string " + passed + "} IndexedFaceSet { coordIndex [ " + list,
          "Material { diffuseColor [ " + list + "] transparency [ " + list + "] } ShapeHints { " + passed +
              "} Cube { }"}) {
      std::string scene = "#VRML V1.0 ascii\n";
      std::vector<std::size_t> ends;
      std::istringstream stream(words);
      for (std::string word; stream >> word;) {
        const bool seen = word[0] != '*';
        scene += seen ? word : word.substr(1);
        if (seen) ends.push_back(scene.size());
        scene += ' ';
      }
      ends.front() = 0;  // the first token is read before the load begins
      ends.push_back(scene.size());
      std::vector<int> expected;
      for (const std::size_t end : ends) {
        const double share = static_cast<double>(end) / static_cast<double>(scene.size()) * 100;
        const int percentage = std::min(static_cast<int>(share), 99);
        if (percentage > (expected.empty() ? 0 : expected.back())) expected.push_back(percentage);
      }
      Reports().clear();
      const TemporaryFolder folder;
      CKelWorld world;
      CVRMLParser parser;
      parser.SetLoaderPtr([](int percentage) { Reports().push_back(percentage); });
      const std::string path = folder.Write("scene.wrl", scene);
      parser.Parse(&world, path.c_str());
      EXPECT_EQ(Reports(), expected) << scene.substr(0, 300);
      parser.Parse(&world, path.c_str());
      EXPECT_EQ(Reports(), expected) << "a second load reports only above the last percentage";
    }
  }
}

// A file that ends inside its scopes leaves them open; the next load goes to its own world all the same.
TEST(Load, OpenScopesOfAnEarlierLoadLeadIntoTheNewWorld) {
  const TemporaryFolder folder;
  CVRMLParser parser;
  {
    CKelWorld first;
    parser.Parse(&first, folder.Write("open.wrl", "#VRML V1.0 ascii\nDEF g Separator { Separator { Cube {} ").c_str());
    EXPECT_EQ(first.GetNumObjects() + first.GetNumGroups(), 0) << "the group's scope never closed";
  }
  CKelWorld second;
  parser.Parse(&second, folder.Write("next.wrl", "#VRML V1.0 ascii\n} } Cube {}").c_str());
  CheckModel(second);
  EXPECT_EQ(parser.GetSeparatorStack()->GetCount(), 0);
}

// What a load finds out is its own; names, prototypes and the last warning stay, as a host may want them.
TEST(Load, ASecondLoadFindsOutAnew) {
  const TemporaryFolder folder;
  const std::string first = folder.Write("first.wrl", R"(#VRML V2.0 utf8
    PROTO Ball [ ] { Sphere { radius 30 } } Extrusion { } Inline { url "none.wrl" }
    Shape { appearance Appearance { texture ImageTexture { url "none.png" } } geometry DEF left Box { })");
  Model model = LoadFile(first);
  EXPECT_EQ(model.Result, VRMLLoadWarnings);
  EXPECT_EQ(model.Units(), VRMLUnitsCentimeters);
  EXPECT_EQ(model.Parser->GetVersion(), VRMLVersion20);
  EXPECT_EQ(model.Parser->GetMissingFiles().size(), 2U);

  CKelWorld second;
  const std::string text = "#VRML V1.0 ascii\nCube { width 50 } Ball { } Cone { parts SIDES } USE left";
  EXPECT_EQ(model.Parser->Parse(&second, folder.Write("second.wrl", text).c_str()), VRMLLoadWarnings);
  EXPECT_EQ(model.Parser->GetLastWarning(), VRMLWarningExtrusionData);
  EXPECT_EQ(model.Parser->GetImageUnits(), VRMLUnitsMeters);
  EXPECT_EQ(model.Parser->GetVersion(), VRMLVersion10);
  EXPECT_TRUE(model.Parser->GetMissingFiles().empty());
  EXPECT_EQ(second.GetNumObjects(), 3 + 1 + 1) << "a cone has its base in version 1.0";
  EXPECT_EQ(second.GetNumGroups(), 0) << "the last name of the first file is no group of the second";
  CheckModel(second);

  CKelWorld third;
  model.Parser->SetLastWarning(VRMLWarningNone);
  EXPECT_EQ(model.Parser->Parse(&third, first.c_str()), VRMLLoadWarnings);
  EXPECT_EQ(model.Parser->GetMissingFiles().size(), 2U) << "missing again";
}

// A subfile that the host reads after a load may be that load's main file, and goes to the world that the host gives.
TEST(Load, HostsReadOnAfterALoad) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("main.wrl", "#VRML V2.0 utf8\nDEF b Box {} Inline { url \"main.wrl\" }");
  CVRMLParser parser;
  CKelWorld first;
  parser.Parse(&first, path.c_str());
  EXPECT_EQ(first.GetNumObjects(), 1);
  CKelWorld second;
  parser.SetWorld(&second);
  ASSERT_TRUE(parser.DefineSeparator());
  EXPECT_TRUE(parser.ParseSubfile(path.c_str()));
  EXPECT_TRUE(parser.DefineUse("b"));
  parser.PopSeparator();
  EXPECT_EQ(first.GetNumObjects(), 1);
  EXPECT_EQ(second.GetNumObjects(), 2);
}

CVRMLParser* LoadingParser = nullptr;
VRMLLoadResultTypes NestedResult = VRMLLoadOK;

TEST(Load, ALoadInsideALoadIsRefused) {
  const TemporaryFolder folder;
  CVRMLParser parser;
  LoadingParser = &parser;
  parser.SetLoaderPtr([](int) {
    CKelWorld other;
    NestedResult = LoadingParser->Parse(&other, "/no/such/file.wrl");
  });
  CKelWorld world;
  const std::string scene = "#VRML V1.0 ascii\nCube {} Cube {} Cube {}";
  EXPECT_EQ(parser.Parse(&world, folder.Write("scene.wrl", scene).c_str()), VRMLLoadOK);
  EXPECT_EQ(NestedResult, VRMLLoadFailed);
  EXPECT_EQ(world.GetNumObjects(), 3);
}

// A callback's exception closes the scopes of its load alone; what had entered the model is whole, and the next load is
// like any other.
TEST(Load, AnExceptionLeavesTheParserAsAFailedLoadDoes) {
  const TemporaryFolder folder;
  const std::string open = folder.Write("open.wrl", "#VRML V1.0 ascii\nSeparator { Separator { Cube {}");
  const std::string groups = "#VRML V2.0 utf8\nDEF a Group { children [ Box {} DEF b Group { children Box {} } ";
  const std::string scene = folder.Write("scene.wrl", groups + std::string(1000, ' ') + "Box {} Box {} Box {} ] }");
  CVRMLParser parser;
  CKelWorld world;
  parser.Parse(&world, open.c_str());
  const int earlier = parser.GetSeparatorStack()->GetCount();
  EXPECT_EQ(earlier, 2);
  parser.SetLastPercentage(0);
  parser.SetLoaderPtr([](int percentage) {
    if (percentage > 95) throw std::runtime_error("enough");
  });
  EXPECT_THROW(parser.Parse(&world, scene.c_str()), std::runtime_error);
  EXPECT_EQ(parser.GetSeparatorStack()->GetCount(), earlier);
  EXPECT_EQ(parser.GetImageUnits(), VRMLUnitsMeters);
  ASSERT_EQ(world.GetNumGroups(), 1);
  EXPECT_GE(world.GetGroupAt(0)->GetNumObjects(), 1);
  EXPECT_EQ(world.GetGroupAt(0)->GetNumGroups(), 1);
  CheckModel(world);
  parser.SetLoaderPtr(nullptr);
  parser.ClearSeparatorStack();
  parser.SetCurrentSeparator(nullptr);
  CKelWorld next;
  EXPECT_EQ(parser.Parse(&next, scene.c_str()), VRMLLoadOK);
  EXPECT_EQ(next.GetGroupAt(0)->GetNumObjects(), 4);
}

// Each of these loads leaves two scopes open; the bound on open ones is that of one load.
TEST(Load, ScopesLeftOpenDoNotAddUpToTheBound) {
  const TemporaryFolder folder;
  const std::string open = folder.Write("open.wrl", "#VRML V1.0 ascii\nSeparator { Separator { Cube {}");
  CVRMLParser parser;
  for (int i = 0; i < 300; ++i) {
    CKelWorld world;
    ASSERT_EQ(parser.Parse(&world, open.c_str()), VRMLLoadOK) << i;
  }
  EXPECT_EQ(parser.GetSeparatorStack()->GetCount(), 600);
}

TEST(Load, CopiesOwnNothingOfTheOriginal) {
  const Model model = Load("DEF a Cube {}");
  CVRMLParser copy(*model.Parser);
  EXPECT_EQ(copy.GetWorld(), model.World.get());
  EXPECT_EQ(copy.GetImageUnits(), VRMLUnitsCentimeters);
  EXPECT_EQ(copy.FindObjectInDictionary("a"), nullptr);
  copy = std::as_const(copy);
  copy = *model.Parser;
  EXPECT_EQ(copy.GetObjectDictionary()->GetCount(), 0);
  CKelWorld world;
  const TemporaryFolder folder;
  const std::string path = folder.Write("scene.wrl", "#VRML V2.0 utf8\nPROTO P [] { Box {} } P {}");
  EXPECT_EQ(copy.Parse(&world, path.c_str()), VRMLLoadOK);
  EXPECT_EQ(world.GetNumObjects(), 1);
  EXPECT_EQ(model.Size(), 1U);
  copy = *model.Parser;
  EXPECT_EQ(copy.GetPrototypeDictionary()->GetCount(), 0);

  // Scopes that are still open stay the original's, whichever of the two goes first.
  auto open = std::make_unique<CVRMLParser>();
  open->Parse(&world, folder.Write("open.wrl", "#VRML V1.0 ascii\nDEF g Separator { Separator { Cube {}").c_str());
  CKelWorld other;
  EXPECT_EQ(CVRMLParser(*open).Parse(&other, path.c_str()), VRMLLoadOK);
  EXPECT_EQ(other.GetNumObjects(), 1);
  EXPECT_EQ(open->GetSeparatorStack()->GetCount(), 2);
  copy = *open;
  open.reset();
  EXPECT_EQ(copy.GetSeparatorStack()->GetCount(), 0);
}

TEST(Load, WithoutAWorldNothingIsPlaced) {
  const TemporaryFolder folder;
  CVRMLParser parser;
  const std::string scene = "#VRML V1.0 ascii\nDEF g Separator { Cube {} Cylinder {} } Info {}";
  EXPECT_EQ(parser.Parse(nullptr, folder.Write("s.wrl", scene).c_str()), VRMLLoadOK);
}

}  // namespace
