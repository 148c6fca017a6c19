#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/Model.h"
#include "support/Tool.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

TEST(Notes, SayWhatTheModelDoesNotShow) {
  const TemporaryFolder folder;
  folder.Write("part.wrl", "#VRML V2.0 utf8\n\nInline { url \"gone.wrl\" } Box {}");
  folder.Write("text.wrl", "a text");
  const std::string path = folder.Write("s.wrl", R"(#VRML V2.0 utf8
Shape { geometry Text {} } Shape { geometry Text {} }
Inline { url "part.wrl" } Inline { url "text.wrl" } DEF lamp PointLight {}
PROTO P [] { Box {} } P { size 2 } USE bolt USE bolt USE bolt
Extrusion {}
)");
  EXPECT_THAT(RunTool("info " + path).Out, HasSubstr(R"(
notes               9
  Text: passed over, 2 times, first in line 2
  gone.wrl: not found, once, in line 3 of part.wrl
  text.wrl: found, and can't be used, once, in line 3
  PointLight: read and dropped, once, in line 3
  lamp: DEF of a node that was left out, once, in line 3
  P.size: a field that the prototype doesn't have, once, in line 4
  bolt: USE of a name that means nothing, 3 times, first in line 4
  Extrusion: lacks a spine or a cross-section, once, in line 5
  Extrusion: added nothing to the model, once, in line 5
time )"));

  const auto notes = nlohmann::json::parse(RunTool("dump " + path).Out)["notes"];
  ASSERT_EQ(notes.size(), 9);
  const std::string part = (folder.Path() / "part.wrl").string();
  EXPECT_EQ(notes[0], nlohmann::json::parse(R"({"kind":"unknownNode","name":"Text","count":2,"file":")" + path +
                                            R"(","line":2})"));
  EXPECT_EQ(notes[1]["kind"], "missingFile");
  EXPECT_EQ(notes[1]["file"], part);
  EXPECT_EQ(nlohmann::json::parse(RunTool("info --json " + path).Out)["notes"], notes);
}

TEST(Notes, ExplainAnEmptyModel) {
  const TemporaryFolder folder;
  const std::string nothing = "nothing to show; the notes above say why, docs/troubleshooting.md tells more\n";
  const ToolOutput loaded =
      RunTool("info " + folder.Write("proto.wrl", "#VRML V2.0 utf8\nPROTO P [] { Box {} }\nGroup {}"));
  EXPECT_THAT(loaded.Out, HasSubstr("\n  P: a PROTO that no node uses, and no node makes an object\n"));
  EXPECT_THAT(loaded.Out, EndsWith(" ms\n" + nothing));
  const ToolOutput failed = RunTool("info " + folder.Write("failed.wrl", "#VRML V1.0 ascii\nUSE a Foo {}"));
  EXPECT_THAT(failed.Out, HasSubstr("\n  Foo: passed over, once, in line 2\n"));
  EXPECT_THAT(failed.Out, HasSubstr(nothing));
  const ToolOutput shown = RunTool("info " + folder.Write("some.wrl", "#VRML V1.0 ascii\nCube {} USE a"));
  EXPECT_THAT(shown.Out, Not(HasSubstr(nothing)));
}

TEST(Notes, CountThoseThatAreNotListed) {
  const TemporaryFolder folder;
  std::string scene = "#VRML V1.0 ascii\nCube {}\n";
  for (int i = 0; i < 1500; ++i) scene += "USE a" + std::to_string(i) + "\n";
  const std::string path = folder.Write("s.wrl", scene);
  EXPECT_THAT(
      RunTool("info " + path).Out,
      HasSubstr("\n  a255: USE of a name that means nothing, once, in line 258\n  and 1,244 more that differ\n"));
  EXPECT_THAT(RunTool("info " + folder.Path().string()).Out, HasSubstr("  256+ "));
  EXPECT_EQ(nlohmann::json::parse(RunTool("dump " + path).Out)["unlistedNotes"], 1244);
}

}  // namespace
