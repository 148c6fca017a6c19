#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>

#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"
#include "qelvrml/dictionary/CVRMLDictionarySolids.h"
#include "support/Model.h"

namespace {

std::vector<std::string> Sorted(const std::string& words) {
  std::istringstream stream(words);
  std::vector<std::string> list{std::istream_iterator<std::string>(stream), {}};
  std::sort(list.begin(), list.end());
  return list;
}

TEST(Dictionary, UsesReplayWhatIsDefined) {
  struct Case {
    std::string Scene;
    std::string Classes;
  };
  for (const auto& [scene, classes] :
       {Case{"USE nothing Cube {}", "brixBox"}, Case{"USE a DEF a Cube {}", "brixBox"},
        Case{"DEF a Cube {} DEF a Sphere {} USE a", "brixBox brixSphere brixSphere"},
        Case{"Separator { DEF a Cube {} } USE a", "brixBox brixBox"}, Case{"DEF a Cube {} USE A", "brixBox"},
        Case{"DEF a Separator { DEF a Cube {} Sphere {} } USE a", "brixBox brixSphere brixBox"},
        Case{"DEF a Separator { DEF a Separator { Cube {} } Sphere {} } USE a",
             "brixSphere brixBox brixBox brixSphere"},
        Case{"DEF b Separator { Sphere {} Separator { Cube {} } } USE b", "brixSphere brixBox brixSphere brixBox"},
        Case{"DEF a Separator { DEF b Cube {} } DEF b Sphere {} USE a USE b", "brixSphere brixSphere brixBox brixBox"},
        Case{"DEF c Cube {} DEF a Separator { USE c } DEF c Sphere {} USE a", "brixBox brixSphere brixBox brixSphere"},
        Case{"DEF a Separator { USE a Cube {} } USE a", "brixBox brixBox"},
        Case{"DEF a Separator { Cube {} USE a } DEF b Separator { USE a USE b } USE b",
             "brixBox brixBox brixBox brixBox brixBox"},
        Case{"DEF x USE y DEF y Cube {} USE x", "brixBox"}}) {
    SCOPED_TRACE(scene);
    const Model model = Load(scene);
    EXPECT_EQ(Sorted(model.Classes()), Sorted(classes));
  }
}

// The body of an instance is read for its effect; what stands in it belongs to the instance's entry alone.
TEST(Dictionary, InstancesLeaveTheRecordingAroundThemInPlace) {
  struct Case {
    std::string Scene;
    std::string Classes;
  };
  for (const auto& [scene, classes] :
       {Case{"PROTO P [] { DEF a Group { children Shape { geometry Box {} } } } "
             "DEF a Group { children [ P {} Shape { geometry Sphere {} } ] } USE a",
             "brixBox brixSphere brixBox brixSphere"},
        Case{"PROTO Chair [ ] { DEF Chair Shape { geometry Box {} } } "
             "DEF g Group { children [ DEF Chair Chair { } Shape { geometry Sphere {} } ] } USE g",
             "brixBox brixSphere brixBox brixSphere"},
        Case{"PROTO P [ ] { Shape { geometry Box {} } } DEF i P { } USE i DEF g Group { children [ USE i P { } ] } USE "
             "g",
             "brixBox brixBox brixBox brixBox brixBox brixBox"}}) {
    EXPECT_EQ(Sorted(Load20(scene).Classes()), Sorted(classes)) << scene;
  }
}

// The names at hand belong to the node that the host is about to make, not to the body that is read again.
TEST(Dictionary, ReplaysOutsideALoadLeaveTheNameAtHand) {
  Model model = Load20("PROTO P [ ] { DEF inner Shape { geometry Box {} } } DEF i P { }");
  CVRMLParser& parser = *model.Parser;
  ASSERT_TRUE(parser.DefineSeparator());
  parser.SetEntityName("mine");
  parser.SetDefinedEntity(true);
  EXPECT_TRUE(parser.DefineUse("i"));
  EXPECT_TRUE(parser.GetEntityName() == "mine");
  EXPECT_TRUE(parser.GetDefinedEntity());
  EXPECT_TRUE(parser.PopSeparator());
}

// A replayed separator is a group of its name, and what its children make bears that name too.
TEST(Dictionary, ReplayedSeparatorsMakeGroups) {
  const Model model =
      Load("DEF s Separator { Material { diffuseColor 1 0 0 } Separator { Cube {} } DEF n Sphere {} } USE s");
  ASSERT_EQ(model.World->GetNumGroups(), 2);
  const brixBaseGroup& again = *model.World->GetGroupAt(1);
  EXPECT_EQ(ToString(again.GetGroupName()), "s");
  ASSERT_EQ(again.GetNumObjects(), 2);
  EXPECT_EQ(ToString(again.GetObjectAt(0)->GetObjectName()), "") << "inside the nested separator";
  EXPECT_EQ(ToString(again.GetObjectAt(1)->GetObjectName()), "s");
  EXPECT_EQ(model.Parser->GetObjectDictionary()->GetCount(), 5) << "no entry comes from a replay";
}

TEST(Dictionary, AnyTokenIsAName) {
  EXPECT_EQ(Load("DEF \"two words\" Cube {} USE \"two words\"").Size(), 2U);
  EXPECT_EQ(Load("DEF { Cube {} USE {").Size(), 2U);
}

TEST(Dictionary, EntriesAreFoundByTheHashOfTheirName) {
  CVRMLParser parser;
  auto* cube = new CVRMLDictionaryCube;
  cube->SetName("codding");
  ASSERT_TRUE(parser.AddDictionaryObject(cube));
  EXPECT_EQ(parser.FindObjectInDictionary("codding"), cube);
  EXPECT_EQ(parser.FindObjectInDictionary(""), nullptr);
  EXPECT_TRUE(parser.GetObjectDictionary()->Remove(cube)) << "a host may take an entry out by itself";
  EXPECT_EQ(parser.FindObjectInDictionary("codding"), nullptr);
  ASSERT_TRUE(parser.GetObjectDictionary()->AddHead(cube));
  EXPECT_EQ(parser.FindObjectInDictionary("codding"), cube);
  EXPECT_TRUE(parser.RemoveDictionaryObject(cube));
  EXPECT_FALSE(parser.RemoveDictionaryObject(nullptr));
  parser.SetSkippingBlock(true);
  EXPECT_FALSE(parser.AddDictionaryObject(new CVRMLDictionaryCube));
  EXPECT_EQ(parser.GetObjectDictionary()->GetCount(), 0);
}

TEST(Dictionary, ClearingDetachesOpenSeparators) {
  CVRMLParser parser;
  CKelWorld world;
  parser.SetWorld(&world);
  parser.SetDefinedEntity(true);
  parser.SetEntityName("open");
  ASSERT_TRUE(parser.DefineSeparator());
  parser.SetEntityName("");
  parser.DefineCube(1, 1, 1);
  EXPECT_EQ(parser.GetObjectDictionary()->GetCount(), 2);
  parser.ClearObjectDictionary();
  EXPECT_EQ(parser.GetCurrentSeparator()->GetDictionaryEntry(), nullptr);
  parser.DefineCube(1, 1, 1);
}

// Each level uses the one below it twice; what a load may do is bounded, and what was read before stays.
TEST(Dictionary, MultiplyingUsesEnd) {
  std::string scene = "Cube {} Separator { DEF d0 Separator { Info {} } ";
  for (int i = 1; i < 60; ++i) {
    const std::string below = "USE d" + std::to_string(i - 1) + " ";
    scene += "DEF d" + std::to_string(i) + " Separator { " + below + below + "} ";
  }
  const Model model = Load(scene + "}");
  EXPECT_EQ(model.Classes(), "brixBox");
}

}  // namespace
