#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <tuple>
#include <utility>

#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"
#include "support/Model.h"

namespace {

std::string Take(char* text, int length) {
  const CBasicAllocatedText owned(text);
  return text ? std::string(text, static_cast<std::size_t>(length)) : "";
}

// What an instance of the first prototype of a scene expands to.
std::string Expanded(const std::string& scene, const std::string& instance) {
  const Model model = Load20(scene);
  auto* prototype = static_cast<CVRMLPrototype*>(model.Parser->GetPrototypeDictionary()->GetHead());
  char* text = nullptr;
  int length = 0;
  if (!prototype || !prototype->CreateInstanceText(instance.c_str(), static_cast<int>(instance.size()), &text, &length))
    return "none";
  return Take(text, length);
}

TEST(Prototype, ValuesTakeThePlaceOfTheirReferences) {
  const std::string ball = "PROTO Ball [ field SFFloat r 2 ] { Sphere { radius IS r } } ";
  EXPECT_EQ(Expanded(ball, ""), "Sphere { radius 2 }");
  EXPECT_EQ(Expanded(ball, "r 5"), "Sphere { radius 5 }");
  EXPECT_EQ(Expanded(ball, "R 5 r 6 7"), "Sphere { radius 6 }") << "names are exact, and what is left over goes by";
  EXPECT_EQ(Expanded("PROTO P [ field SFColor c 1 0 0 ] { a IS c b IS c d IS none }", "c 0 1 0 9"),
            "a 0 1 0 b 0 1 0 d");
  EXPECT_EQ(
      Expanded("PROTO P [ eventIn SFFloat e field SFFloat f field MFFloat g [ 1 2 ] exposedField SFBool h TRUE ] { x }",
               "h FALSE"),
      "x f  g [ 1 2 ] h FALSE")
      << "what no IS takes stands behind the body";
  EXPECT_EQ(Expanded("PROTO P [ field MFNode n [ Box {} ] field SFInt32 i 4 ] { children IS n size IS i }", "i 5"),
            "children [ Box { } ]\n size ")
      << "a type without a form takes nothing from an instance";
  EXPECT_EQ(Expanded("PROTO P [] { }", ""), "none");
}

// Of fields with one name the first counts, in the declaration as in the instance, however many there are.
TEST(Prototype, AnyNumberOfFields) {
  for (const int count : {1, 2, 15, 16, 17, 18, 40}) {
    std::string fields;
    std::string body;
    std::string given;
    std::string expected;
    for (int i = 0; i < count; ++i) {
      const std::string name = "f" + std::to_string(i);
      fields += "field SFFloat " + name + ' ' + std::to_string(i) + ' ';
      if (i % 3 != 1) given += name + ' ' + std::to_string(100 + i) + ' ';
      body += "w IS " + name + ' ';
      expected += "w " + std::to_string(i % 3 == 1 ? i : 100 + i) + ' ';
    }
    const std::string scene = "PROTO P [ " + fields + "field SFFloat f0 -1 ] { " + body + "end IS F0 }";
    EXPECT_EQ(Expanded(scene, given + "f0 -2"), expected + "end f0 -2") << count;
  }
}

TEST(Prototype, InstancesAreNodesOfTheScene) {
  struct Case {
    std::string Scene;
    std::string Classes;
  };
  const std::string ball = "PROTO Ball [ field SFFloat r 2 ] { Shape { geometry Sphere { radius IS r } } } ";
  for (const auto& [scene, classes] :
       {Case{ball + "Ball { } Box {}", "brixSphere brixBox"},
        Case{ball + "Group { children [ Ball { r 1 } Ball { } ] }", "brixSphere brixSphere"},
        Case{ball + "DEF a Ball { } USE a", "brixSphere brixSphere"}, Case{"Ball { } " + ball, ""},
        Case{"PROTO Box [] { Sphere {} } Box { }", "brixBox"},
        Case{ball + "PROTO Ball [] { Box {} } Ball { }", "brixSphere"},
        Case{ball + "PROTO Two [] { Ball { r 3 } Ball { } } Two { }", "brixSphere brixSphere"},
        Case{"PROTO Outer [] { PROTO Inner [ field SFFloat s 1 ] { Sphere { radius IS s } } Box {} } Outer { } Inner { "
             "}",
             "brixBox brixSphere"},
        Case{"PROTO P [ field SFNode n Box {} ] { Sphere {} } P { }", "brixSphere brixBox"},
        Case{"PROTO [] { Box {} } Sphere {}", "brixSphere"},
        Case{"PROTO P [ field SFNode n Group { children [ ] } ] { Box {} } P { } Sphere {}", "brixSphere"},
        Case{"PROTO P [] Box {}", ""}, Case{"PROTO P [ field SFFloat a 1", ""}, Case{"PROTO P [] { Box { } P { }", ""},
        Case{"PROTO P [] { Box {} } } P { } Sphere {}", ""}, Case{ball + "Ball Box {}", "brixSphere"}}) {
    EXPECT_EQ(Load20(scene).Classes(), classes) << scene;
  }
}

TEST(Prototype, DefedInstancesReplayAsAWhole) {
  const Model model = Load20(R"(PROTO Pair [] { DEF b Box {} Sphere {} }
    DEF g Group { children [ DEF p Pair { } ] } USE p USE b USE g)");
  EXPECT_EQ(model.Group("g")->GetNumObjects(), 2);
  EXPECT_EQ(model.Size(), 2U + 2U + 1U + 2U) << "the scope holds the instance and not its nodes as well";
}

// A string with blanks, quotes and delimiters in a body or a value is one token still.
TEST(Prototype, StringsSurviveTheExpansion) {
  const TemporaryFolder folder;
  folder.Write("my part (1).wrl", "#VRML V2.0 utf8\nBox {}");
  const std::string scene = folder.Write("s.wrl", R"(#VRML V2.0 utf8
    PROTO Part [ field MFString file [ "none.wrl" ] field SFString empty "" ] {
      Script { url "javascript: function f() { return \"}\"; } # [" }
      Group { children Inline { url IS file } }
      Group { children Inline { url "my part (1).wrl" } } }
    PROTO Outer [] { Part { file [ "my part (1).wrl" ] } }
    Outer { } Sphere {})");
  EXPECT_EQ(LoadFile(scene).Classes(), "brixBox brixBox brixSphere");
}

TEST(Prototype, EndlessExpansionEnds) {
  EXPECT_EQ(Load20("PROTO P [] { Box {} P { } } P { } Sphere {}").Size(), 64U + 1U);
  EXPECT_EQ(Load20("PROTO A [] { B { } Box {} } PROTO B [] { A { } } A { } Sphere {}").Size(), 32U + 1U);
  std::string doubling = "PROTO P0 [] { WorldInfo { title \"" + std::string(10000, 'x') + "\" } } ";
  for (int i = 1; i < 40; ++i) {
    const std::string below = "P" + std::to_string(i - 1) + " { } ";
    doubling += "PROTO P" + std::to_string(i) + " [] { " + below + below + "} ";
  }
  EXPECT_EQ(Load20("Sphere {} " + doubling + "P39 { }").Classes(), "brixSphere");
}

// A text that the merge would blow up beyond what a load may spend is left out before it is made.
TEST(Prototype, EnormousMergesAreLeftOut) {
  std::string references;
  for (int i = 0; i < 20000; ++i) references += "a IS f ";
  const std::string scene =
      "PROTO P [ field SFString f \"" + std::string(100000, 'x') + "\" ] { " + references + "Box {} } P { } Sphere {}";
  EXPECT_EQ(Load20(scene).Classes(), "brixSphere");
}

// The steps of a merge, as a host may take them by itself.
TEST(PrototypeField, StepsOfAMerge) {
  CVRMLPrototype prototype;
  for (const char* name : {"a", "b", "c"}) {
    CBasicString type("SFFloat");
    char* value = static_cast<char*>(std::malloc(1));
    *value = '1';
    ASSERT_TRUE(prototype.AddField(name, type, value, 1));
  }
  CKelList values;
  values.SetElementHandler(FieldElementHandler);
  const std::string text = "{ b 2 unknown 3 b 4";
  ASSERT_TRUE(prototype.ParseInstanceFields(text.c_str(), static_cast<int>(text.size()), values));
  EXPECT_FALSE(prototype.ParseInstanceFields(nullptr, 0, values));
  ASSERT_EQ(values.GetCount(), 2);
  EXPECT_EQ(CVRMLPrototypeField(*CVRMLPrototype::FindField("b", values)).GetValue(), "2") << "a copy has it too";
  EXPECT_EQ(prototype.FindField("B"), nullptr);
  prototype.MarkOverriddenFields(values);
  EXPECT_TRUE(prototype.FindField("b")->GetUsed());
  int sum = 0;
  int count = 0;
  CVRMLPrototype::AddUnusedFields(prototype.GetFields(), &sum, &count, 0, nullptr);
  EXPECT_EQ(sum, 4);
  EXPECT_EQ(count, 4);
  std::string written(7, '.');
  char* out = written.data();
  int pieces = 0;
  CVRMLPrototype::AddUnusedFields(prototype.GetFields(), &sum, &pieces, count, &out);
  EXPECT_EQ(written, "a.1.c.1") << "blanks are left to whoever has filled the buffer";
  values.RemoveAllValues();
}

// A long s is an S in upper case to a locale that knows it, and so is a small dotless i an I; to a type it is neither.
TEST(PrototypeField, TypesKnowNoLocale) {
  ASSERT_TRUE(std::setlocale(LC_ALL, "C.UTF-8"));
  for (const auto& [name, type] : {std::pair(u"sfImage", VRMLFieldSFIMAGE),
                                   {u"\u017Ffimage", VRMLFieldUnknown},
                                   {u"sf\u0131mage", VRMLFieldUnknown}}) {
    CVRMLPrototypeField field;
    CBasicString text(name);
    field.SetTypeFromName(text);
    EXPECT_EQ(field.GetType(), type);
    EXPECT_EQ(text, CBasicString(u"SFIMAGE")) << "the text itself follows the locale";
  }
  std::setlocale(LC_ALL, "C");
}

class CaptureTest : public testing::Test {
protected:
  void Start(const std::string& text) { Manager.StartBufferReading(text.c_str(), static_cast<int>(text.size())); }
  std::string Current() { return Manager.GetCurrentTokenString(); }
  std::string Block(const std::string& text, bool fieldDefault) {
    Start(text);
    char* captured = nullptr;
    int length = 0;
    const bool found = Manager.CaptureBlockText(&captured, &length, fieldDefault);
    return Take(captured, length) + (found ? "" : "!");
  }
  std::string Field(const std::string& text, VRMLFieldTypes type) {
    CVRMLPrototype prototype;
    Start(text);
    char* captured = nullptr;
    int length = 0;
    const bool found = Manager.CaptureFieldText(&captured, &length, type, &prototype);
    return Take(captured, length) + (found ? "" : "!");
  }
  CVRMLIOManager Manager;
};

// A blank behind every token but the last, a line feed behind every fifth one.
TEST_F(CaptureTest, BlocksEndWhereTheirKindSays) {
  for (const auto& [text, fieldDefault, captured, current] :
       {std::tuple("{ a b c d } next", false, "a b c d", "}"),
        {"{ a { b } c d } next", false, "a { b } c \nd", "}"},
        {"{ 1 2 3 4 5 }", false, "1 2 3 4 5\n", "}"},
        {"[ 1 [ 2 ] ] field", true, "[ 1 [ 2 ] \n]", "field"},
        {"Box { } eventIn", true, "Box { }", "eventIn"},
        {"{ } next", false, "!", "}"},
        {"word next", false, "word", "next"},
        {"{ a ( b", false, "a ( b", ""},                         // the input ends
        {"[ 1 ] stray words field", true, "[ 1 ]", "stray"}}) {  // what isn't counted isn't written
    EXPECT_EQ(Block(text, fieldDefault), captured) << text;
    EXPECT_EQ(Current(), current) << text;
  }
}

// A text as long as any, told from its tokens.
TEST_F(CaptureTest, TextsOfAllLengths) {
  const auto joined = [](const std::vector<std::string>& tokens) {
    std::string text;
    for (std::size_t i = 1; i <= tokens.size(); ++i) {
      text += tokens[i - 1] + (i < tokens.size() ? " " : "") + (i % 5 == 0 ? "\n" : "");
    }
    return text;
  };
  for (const std::size_t count : {1U, 2U, 3U, 4U, 5U, 6U, 9U, 10U, 11U, 30'000U, 8U}) {
    std::string text;
    std::vector<std::string> tokens;
    for (std::size_t i = 0; i < count; ++i) {
      text += i % 3 == 0 ? "\"(" + std::string(i % 40, 'x') + "\" " : std::to_string(i) + ' ';
      tokens.push_back(i % 3 == 0 ? qelvrml::ToShiftCode('(') + std::string(i % 40, 'x') : std::to_string(i));
    }
    EXPECT_EQ(Block("{ " + text + "} next", false), joined(tokens));
    EXPECT_EQ(Block("{ " + text, false), joined(tokens)) << "the input ends";
    tokens.insert(tokens.begin(), "[");
    tokens.emplace_back(" ");  // for what is missing
    std::string open = joined(tokens);
    if (open.back() == '\n') open.back() = ' ';
    EXPECT_EQ(Block("[ " + text, false), open + '!');
    tokens.back() = "]";
    for (const bool fieldDefault : {false, true})
      EXPECT_EQ(Block("[ " + text + "] field", fieldDefault), joined(tokens));
    EXPECT_EQ(Field("[ " + text + "] next", VRMLFieldMFSTRING), joined(tokens));
    EXPECT_EQ(Current(), "next");
  }
}

TEST_F(CaptureTest, ValuesByTheirType) {
  struct Case {
    VRMLFieldTypes Type;
    std::string Text;
    std::string Captured;
    std::string Current;
  };
  for (const auto& [type, text, captured, current] :
       {Case{VRMLFieldSFCOLOR, "1 2 3 4", "1 2 3", "4"},
        Case{VRMLFieldSFROTATION, "[ 0 0 1 2 ] x", "[ 0 0 1 2 \n]", "x"}, Case{VRMLFieldSFVEC2F, "word", "!", "word"},
        Case{VRMLFieldMFFLOAT, "[ 1 [ 2 ] ] x", "[ 1 [ 2 ]\n", "]"}, Case{VRMLFieldMFFLOAT, "1 2", "!", "1"},
        Case{VRMLFieldSFSTRING, "\"a b\" x",
             "a\x0E"
             "b",
             "x"},
        Case{VRMLFieldSFIMAGE, "2 1 3 0xFF 0x00 x", "2 1 3 0xFF 0x00\n", "x"}, Case{VRMLFieldSFIMAGE, "x", "!", "x"},
        Case{VRMLFieldSFIMAGE, "99999 99999 3 1", "99999 99999 3 1", ""},
        Case{VRMLFieldMFNODE, "USE a b", "USE a", "b"},
        Case{VRMLFieldMFNODE, "DEF a Box { } x", "DEF a Box { }\n", "x"}, Case{VRMLFieldMFNODE, "word", "!", ""},
        Case{VRMLFieldUnknown, "1", "!", "1"}, Case{VRMLFieldSFBOOL, "", "!", ""}}) {
    EXPECT_EQ(Field(text, type), captured) << text;
    EXPECT_EQ(Current(), current) << text;
  }
}

}  // namespace
