#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Gzip.h"
#include "support/Model.h"
#include "support/Tool.h"

namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

const std::string Cube = "#VRML V1.0 ascii\nCube {}";

TEST(View, WritesAPageIntoThisFolder) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path() / "here");
  const std::string here = "cd " + (folder.Path() / "here").string() + " && ";
  folder.Write("box.WRL.gz", Gzip(Cube));
  const ToolOutput output = RunTool("view ../box.WRL.gz", here);
  EXPECT_THAT(output.Out, ContainsRegex("^box\\.html: open it in a browser; [0-9.]+ kB\n$"));
  EXPECT_EQ(output.Status, 0) << output.Error;
  EXPECT_THAT(ReadWholeFile((folder.Path() / "here/box.html").string()), HasSubstr("\"classes\":[\"brixBox\"]"));
}

TEST(View, LeavesWhatIsThere) {
  const TemporaryFolder folder;
  const std::string scene = folder.Write("box.wrl", Cube);
  const std::string page = folder.Write("page.htm", "mine");
  const ToolOutput output = RunTool("view " + scene + " -o " + page);
  EXPECT_EQ(output.Status, 73);
  EXPECT_THAT(output.Error, HasSubstr("it's there already; --force replaces it"));
  EXPECT_EQ(ReadWholeFile(page), "mine");
  EXPECT_EQ(RunTool("view --force " + scene + " -o " + page).Status, 0);
  EXPECT_THAT(ReadWholeFile(page), HasSubstr("brixBox"));
}

TEST(View, WritesNothingWhereItCant) {
  const TemporaryFolder folder;
  const std::string scene = folder.Write("box.wrl", Cube);
  const std::string empty = folder.Write("empty.wrl", "#VRML V1.0 ascii\nCone { bottomRadius 0 height 0 }");
  const std::string page = (folder.Path() / "page").string();
  const ToolOutput output = RunTool("view " + scene + " -o " + page + ".wrl");
  EXPECT_EQ(output.Error, "qelvrml: " + page + ".wrl: the name of a page ends in .html or .htm\n");
  EXPECT_EQ(output.Status, 64);
  EXPECT_EQ(RunTool("view " + empty + " -o " + page + ".html").Status, 1);
  EXPECT_FALSE(std::filesystem::exists(page + ".wrl") || std::filesystem::exists(page + ".html"));
}

}  // namespace
