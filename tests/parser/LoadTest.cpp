#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
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

TEST(Load, ProgressRisesStrictlyAndNeverReachesTheEnd) {
  Reports().clear();
  const TemporaryFolder folder;
  std::string scene = "#VRML V1.0 ascii\n";
  for (int i = 0; i < 300; ++i) scene += "Cube {} ";
  const std::string path = folder.Write("scene.wrl", scene);
  CKelWorld world;
  CVRMLParser parser;
  parser.SetLoaderPtr([](int percentage) { Reports().push_back(percentage); });
  parser.Parse(&world, path.c_str());
  ASSERT_FALSE(Reports().empty());
  EXPECT_GE(Reports().front(), 1);
  EXPECT_EQ(Reports().back(), 99);
  EXPECT_TRUE(std::adjacent_find(Reports().begin(), Reports().end(), std::greater_equal<>()) == Reports().end());
  const std::size_t count = Reports().size();
  parser.Parse(&world, path.c_str());
  EXPECT_EQ(Reports().size(), count) << "a second load reports only above the last percentage";
}

TEST(Load, ASecondLoadKnowsTheNamesOfTheFirst) {
  const TemporaryFolder folder;
  Model model = LoadFile(folder.Write("first.wrl", "#VRML V1.0 ascii\nDEF a Cube {} Info {}"));
  CKelWorld second;
  EXPECT_EQ(model.Parser->Parse(&second, folder.Write("second.wrl", "#VRML V1.0 ascii\nUSE a").c_str()), VRMLLoadOK);
  EXPECT_EQ(second.GetNumObjects(), 1);
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

TEST(Load, CopiesOwnNothingOfTheOriginal) {
  const Model model = Load("DEF a Cube {}");
  CVRMLParser copy(*model.Parser);
  EXPECT_EQ(copy.GetWorld(), model.World.get());
  EXPECT_EQ(copy.GetImageUnits(), VRMLUnitsCentimeters);
  EXPECT_EQ(copy.FindObjectInDictionary("a"), nullptr);
  copy = copy;
  copy = *model.Parser;
  EXPECT_EQ(copy.GetObjectDictionary()->GetCount(), 0);
}

TEST(Load, WithoutAWorldNothingIsPlaced) {
  const TemporaryFolder folder;
  CVRMLParser parser;
  const std::string scene = "#VRML V1.0 ascii\nDEF g Separator { Cube {} Cylinder {} } Info {}";
  EXPECT_EQ(parser.Parse(nullptr, folder.Write("s.wrl", scene).c_str()), VRMLLoadOK);
}

}  // namespace
