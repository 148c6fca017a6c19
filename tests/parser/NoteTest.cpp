// What a load notes of the things that the model doesn't show.

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "support/Gzip.h"
#include "support/Model.h"

namespace {

std::string TextOf(const CBasicString& text) { return text.GetNarrowText(); }

const std::map<VRMLNoteTypes, std::string>& NoteKinds() {
  static const std::map<VRMLNoteTypes, std::string> kinds = {
      {VRMLNoteUnknownNode, "unknown"},
      {VRMLNoteDroppedNode, "dropped"},
      {VRMLNoteDroppedName, "name"},
      {VRMLNoteMisplacedNode, "misplaced"},
      {VRMLNoteRootClosed, "root closed"},
      {VRMLNoteUnknownUse, "use"},
      {VRMLNoteUnknownField, "field"},
      {VRMLNoteFieldWithoutValue, "no value"},
      {VRMLNoteDroppedPrototype, "dropped prototype"},
      {VRMLNoteNamelessPrototype, "nameless"},
      {VRMLNoteMissingFile, "missing"},
      {VRMLNoteRefusedFile, "refused"},
      {VRMLNoteLimit, "limit"},
      {VRMLNoteExtrusionWithoutData, "extrusion"},
      {VRMLNoteEmptyGeometry, "empty"},
      {VRMLNoteNothingChosen, "nothing chosen"},
      {VRMLNoteLostEnd, "lost end"},
      {VRMLNoteNoGeometry, "no geometry"},
      {VRMLNoteLostParts, "lost parts"},
  };
  return kinds;
}

// Each note as "kind name xcount line;", the count where it isn't 1.
std::string NotesOf(const Model& model) {
  std::string text;
  for (const CVRMLNote& note : model.Parser->GetNotes()) {
    text += NoteKinds().at(note.Kind) + ' ' + TextOf(note.Name);
    if (note.Count > 1) text += " x" + std::to_string(note.Count);
    text += " " + std::to_string(note.Line) + ";";
  }
  return text;
}

std::string Repeat(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

// Lines are counted from the header on, which is the first.
constexpr const char* Version10 = "#VRML V1.0 ascii\n";
constexpr const char* Version20 = "#VRML V2.0 utf8\n";

struct NotedScene {
  const char* Header;
  const char* Text;
  const char* Notes;
};

void ExpectNotes(const NotedScene& scene) {
  const Model model = LoadBytes(std::string(scene.Header) + scene.Text);
  EXPECT_EQ(NotesOf(model), scene.Notes) << scene.Text;
  EXPECT_EQ(model.Parser->GetUnlistedNotes(), 0U);
}

}  // namespace

TEST(Note, NodesThatArePassedOver) {
  const NotedScene scenes[] = {
      {Version20, "Shape { geometry Text {} }\nShape { geometry Text {} geometry Box {} }", "unknown Text x2 2;"},
      {Version20, "DEF T TimeSensor {}\nSphere {}\nROUTE T.time TO a.b", "unknown TimeSensor 2;name T 2;"},
      {Version10, "DEF L PointLight { on TRUE }\n# {\rInfo { string \"Foo {\" }\r\nCube {}",
       "dropped PointLight 2;name L 2;dropped Info 4;"},
      {Version20, "Group { children [ DEF a Script { url \"x\" } Box {} ] }", "unknown Script 2;name a 2;"},
      // What is passed over first and read then is noted once; what is only passed over isn't meant to be shown.
      {Version20, "Transform { children DEF g Group { children [ Foo {}\nBox {} ] } translation 1 0 0 }",
       "unknown Foo 2;"},
      {Version20, "Collision { proxy DEF p Group { children Foo {} }\nchildren Box {} }", ""},
      {Version20, "Shape { metadata M { a 1 } geometry Box {} }", "misplaced M 2;root closed  2;"},
      {Version20, "Shape { appearance Appearance { material Material {} texture Foo {} } geometry Box {} }",
       "unknown Foo 2;"},
      {Version20, "DEF p PixelTexture { image 1 1 1 0xFF }\nBox {}", "dropped PixelTexture 2;name p 2;"},
  };
  for (const NotedScene& scene : scenes) ExpectNotes(scene);
}

TEST(Note, BracesThatCloseTheWrongScope) {
  const NotedScene scenes[] = {
      {Version10, "Cube {}\n}\nSphere {}", "root closed  3;empty Sphere 4;"},
      {Version10, "Separator { Cube {} }\nSeparator { Cube {}", ""},
      {Version20,
       "ElevationGrid { xDimension 2 zDimension 2 color Color { color [ 1 0 0 ] }\nheight [ 0 0 0 0 ] }\n"
       "Transform { children Box {} }",
       "misplaced Color 2;empty ElevationGrid 2;root closed  3;"},
      {Version20, "Shape {\ngeometry DEF t Text # {\n{} }\nBox {}",
       "misplaced Text 4;unknown Text 3;name t 3;root closed  4;empty Box 5;"},
      {Version20, "Group { children [ Box {}\nROUTE a.b TO c.d ] }\nTransform { children Cone {} }",
       "lost end ROUTE 3;"},
      {Version20, "Switch { whichChoice 0 choice [ Box {}\nROUTE a.b TO c.d ] }\nCone {}",
       "lost end choice 3;root closed  3;"},
      {Version10, "Separator { Coordinate3 { point 1 2 3 }\nPointSet {} }\nCube {}",
       "lost end Coordinate3 2;empty PointSet 3;root closed  3;empty Cube 4;"},
  };
  for (const NotedScene& scene : scenes) ExpectNotes(scene);
}

TEST(Note, AFileThatClosesScopesAroundIt) {
  const TemporaryFolder folder;
  const std::string part = folder.Write("part.wrl", "#VRML V1.0 ascii\nCube {} }");
  const Model model = LoadFile(
      folder.Write("main.wrl", "#VRML V1.0 ascii\nSeparator {\nWWWInline { name \"part.wrl\" } Cube {} }\nCone {}"));
  EXPECT_EQ(NotesOf(model), "root closed  x2 2;empty Cone 4;");
  EXPECT_EQ(TextOf(model.Parser->GetNotes()[0].File), part);
}

TEST(Note, NamesAndPrototypes) {
  const NotedScene scenes[] = {
      {Version10, "USE a\nDEF a Cube {}\nUSE a USE b USE b", "use a 2;use b x2 4;"},
      {Version20,
       "PROTO P [ field SFFloat r 1 field SFNode n NULL ] { Sphere { radius IS r } }\n"
       "P { r 2 size 1 2 3 look Look { r 3 } n Box { size 1 1 1 } end TRUE }\nP {\n}",
       "field P.size 3;field P.look 3;no value P.n 3;field P.end 3;"},
      // What stands in the place of a value isn't a field.
      {Version20,
       "PROTO P [ field MFString u [] field SFColor c 1 0 0 ] { Sphere {} }\nP { u \"x\" }\nP { c IS v }\nP { u [] }",
       "no value P.u 3;no value P.c 4;"},
      {Version20, "PROTO Cube [] { Box {} }\nPROTO P [] { Box {} }\nPROTO P [] { Cone {} } P {}",
       "nameless Cube 2;nameless P 4;"},
      {Version20, "PROTO P [] Box {}\nPROTO Q [] { Box {} }", "dropped prototype P 2;no geometry Q 0;"},
      // The line of what stands in an instance's body is that of the instance, of what a USE repeats that of the USE.
      {Version20,
       "PROTO P [] { Group { children [ Foo {} Box {} ] } }\nGroup { children\n  P {\n  } }\nDEF p P {}\nUSE p",
       "unknown Foo x3 4;"},
      {Version20, "PROTO P [] { Group { children [ Box {} USE none ] } }\n\nDEF p P {}", "use none 4;"},
      {Version20, "Group { children [ NavigationInfo {} ] }", "unknown NavigationInfo 2;no geometry  0;"},
  };
  for (const NotedScene& scene : scenes) ExpectNotes(scene);
}

TEST(Note, GeometryThatAddsNothing) {
  const NotedScene scenes[] = {
      {Version10, "Cube {} IndexedFaceSet { coordIndex [ 0 1 2 ] }", "empty IndexedFaceSet 2;"},
      {Version20, "PROTO P [] { PointSet {} }\nP {}", "empty PointSet 3;"},
      {Version10, "Coordinate3 { point [ 0 0 0, 1 0 0, 0 1 0 ] }\nIndexedFaceSet { coordIndex [ 0 1 2 -1 0 1 7 -1 ] }",
       "lost parts IndexedFaceSet 3;"},
      {Version10, "Coordinate3 { point [ 0 0 0, 1 0 0 ] } IndexedLineSet { coordIndex [ 0 1 -1 1 -2 ] }\nCube {}",
       "lost parts IndexedLineSet 2;"},
      {Version20, "PixelTexture { image 100000 100000 3 1 }\nBox {}", "limit pixels of an image 2;"},
      {Version20, "Extrusion {\n}\nBox {}", "extrusion Extrusion 2;empty Extrusion 2;"},
      {Version20, "Cylinder { side FALSE top FALSE bottom FALSE }", ""},
      {Version10, "Switch {\nwhichChoice -1 choice [ Cube {} Cone {} ] }\nSphere {}", "nothing chosen Switch 2;"},
      {Version10, "Switch { whichChoice 1 choice [ Cube {} Cone {} ] }", ""},
  };
  for (const NotedScene& scene : scenes) ExpectNotes(scene);
}

TEST(Note, FilesAreNamedWithTheOneThatAsksForThem) {
  const TemporaryFolder folder;
  folder.Write("part.wrl", "#VRML V2.0 utf8\n\nFoo {} Inline { url \"gone.wrl\" }\nInline { url \"main.wrl\" } Box {}");
  folder.Write("text.wrl", "just a text");
  folder.Write("image.png", "no image");
  folder.Write("passed.wrl",
               "#VRML V2.0 utf8\nTransform { children DEF a Inline { url \"gone.wrl\" } }\nBox {}\n"
               "Switch { whichChoice 1 choice [ DEF b Inline { url \"image.png\" } Box {} ] }");
  const std::string main = folder.Write("main.wrl",
                                        "#VRML V2.0 utf8\nInline { url \"part.wrl\" }\nInline { url \"text.wrl\" }\n"
                                        "Inline { url \"gone.wrl\" }\nFoo {}");
  const Model model = LoadFile(main);
  const std::string path = folder.Path().string() + '/';
  EXPECT_EQ(NotesOf(model), "unknown Foo x2 3;missing " + path + "gone.wrl x2 3;refused " + path +
                                "main.wrl 4;refused " + path + "text.wrl 3;");
  const std::vector<CVRMLNote>& notes = model.Parser->GetNotes();
  EXPECT_EQ(TextOf(notes[0].File), path + "part.wrl");
  EXPECT_EQ(TextOf(notes[3].File), main);
  EXPECT_EQ(NotesOf(LoadFile(folder.Path() / "passed.wrl")), "missing " + path + "gone.wrl 2;")
      << "once, though the text is passed over first";
}

TEST(Note, APackedFileGoesByItsOwnName) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("packed.wrl.gz", Gzip("#VRML V1.0 ascii\nFoo {} Cube {}"));
  const Model model = LoadFile(path);
  ASSERT_EQ(NotesOf(model), "unknown Foo 2;");
  EXPECT_EQ(TextOf(model.Parser->GetNotes()[0].File), path);
}

TEST(Note, OnlySoManyAreKept) {
  std::string scene = Version10;
  for (int i = 0; i < 300; ++i) scene += "Node" + std::to_string(i) + " {}\n";
  scene += "Node0 {} Node299 {} " + std::string(1000, 'x') + " {}";
  Model model = LoadBytes(scene);
  const std::vector<CVRMLNote>& notes = model.Parser->GetNotes();
  ASSERT_EQ(notes.size(), 256U);
  EXPECT_EQ(notes[0].Count, 2U);
  EXPECT_EQ(notes[255].Line, 257);
  EXPECT_EQ(model.Parser->GetUnlistedNotes(), 44U + 2U + 1U) << "the last is that there is no geometry";

  model = LoadBytes(Version10 + ("N" + std::string(1000, 'x')) + " {} Cube {}");
  ASSERT_EQ(model.Parser->GetNotes().size(), 1U);
  EXPECT_EQ(TextOf(model.Parser->GetNotes()[0].Name), "N" + std::string(255, 'x'));
  model = LoadBytes(std::string(Version20) + 'x' + Repeat("\u00E9", 200) + " {} Cube {}");
  EXPECT_EQ(TextOf(model.Parser->GetNotes()[0].Name), 'x' + Repeat("\u00E9", 127)) << "no half of a character";
}

TEST(Note, TheyAreThoseOfTheLastLoad) {
  const TemporaryFolder folder;
  Model model = LoadFile(folder.Write("a.wrl", "#VRML V1.0 ascii\nFoo {} Cube {} Separator {"));
  EXPECT_EQ(NotesOf(model), "unknown Foo 2;");
  const CVRMLParser copy(*model.Parser);
  EXPECT_TRUE(copy.GetNotes().empty());
  model.Parser->Parse(model.World.get(),
                      CBasicString(folder.Write("b.wrl", "#VRML V1.0 ascii\nBar {} Cube {}").c_str()));
  EXPECT_EQ(NotesOf(model), "unknown Bar 2;");
  model.Parser->Parse(model.World.get(), u"/nowhere.wrl");
  EXPECT_EQ(NotesOf(model), "");
  for (const char* scene : {"#VRML V1.0 ascii\nDEF box Cube {}", "#VRML V1.0 ascii\nUSE box"}) {
    model.Parser->Parse(model.World.get(), CBasicString(folder.Write("c.wrl", scene).c_str()));
  }
  EXPECT_EQ(NotesOf(model), "") << "the name makes an object";
}

TEST(Note, LimitsThatAreReached) {
  struct {
    std::string Text;
    const char* Name;
  } const scenes[] = {
      {Version10 + Repeat("Separator { ", 501) + "Cube {}", "open scopes"},
      {Version20 + Repeat("Switch { whichChoice 0 choice ", 501) + "Box {}", "nodes inside one another"},
      {std::string(Version20) + "PROTO P [] { Group { children P {} } }\nP {}", "prototypes inside one another"},
      {std::string(Version20) + "Inline { url \"" + std::string(5000, 'x') + "\" }", "length of a file's name"},
  };
  for (const auto& scene : scenes) {
    const Model model = LoadBytes(scene.Text);
    bool noted = false;
    for (const CVRMLNote& note : model.Parser->GetNotes()) {
      if (note.Kind == VRMLNoteLimit) noted = noted || TextOf(note.Name) == scene.Name;
    }
    EXPECT_TRUE(noted) << scene.Name << ": " << NotesOf(model);
  }
}

// A callback may end the reading of the text that a node stands in.
TEST(Note, TheTextMayBeGone) {
  static CVRMLParser* reading = nullptr;
  const TemporaryFolder folder;
  const std::string path =
      folder.Write("a.wrl", Version10 + std::string("IndexedFaceSet {") + Repeat(" 0", 10'000) + " }");
  CKelWorld world;
  CVRMLParser parser;
  reading = &parser;
  parser.SetLoaderPtr([](int /*percentage*/) { reading->GetIOManager()->CloseFile(); });
  parser.Parse(&world, CBasicString(path.c_str()));
  ASSERT_EQ(parser.GetNotes().size(), 1U);
  EXPECT_EQ(TextOf(parser.GetNotes()[0].Name), "");
}
