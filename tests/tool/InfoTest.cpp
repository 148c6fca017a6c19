#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "support/Gzip.h"
#include "support/Model.h"
#include "support/Tool.h"

namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

const std::string Grid =
    "#VRML V2.0 utf8\nShape { geometry ElevationGrid { xDimension 101 zDimension 101 xSpacing 1 zSpacing 1 height 0 } "
    "}";

std::string Cube(const std::string& width) {
  return "#VRML V1.0 ascii\nCube { width " + width + " height " + width + " depth " + width + " }";
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// Scenes of each kind of name, one that isn't VRML, a file that isn't looked at, a link that leads back.
void FillFolder(const TemporaryFolder& folder) {
  folder.Write("b.wrl", Cube("30"));
  folder.Write("a/Grid.WRL.GZ", Gzip(Grid));
  folder.Write("a/bad.vrml", "Cube {}");
  folder.Write("a/notes.txt", Cube("30"));
  folder.Write("c/z.VRZ", Cube("0.1"));
  std::filesystem::create_directory_symlink(folder.Path(), folder.Path() / "c" / "back");
}

TEST(Info, HasALineForEachOfSeveralFiles) {
  const TemporaryFolder folder;
  FillFolder(folder);
  const std::string path = folder.Path().string();
  const ToolOutput output = RunTool("info " + path);
  const auto lines = Lines(output.Out);
  const std::vector<std::string> expected = {
      "   objects triangles  size                    notes    time  file",
      "ok +1 +20,000  100 x 0 x 100 m +[0-9]+ +[0-9.]+ m?s  " + path + "/a/Grid.WRL.GZ",  // 100 x 100 cells of 2
      "failed: not a VRML file +0 +[0-9.]+ m?s  " + path + "/a/bad.vrml",
      "ok +1 +12  30 x 30 x 30 m +0 +[0-9.]+ m?s  " + path + "/b.wrl",
      "ok +1 +12  100 x 100 x 100 mm +0 +[0-9.]+ m?s  " + path + "/c/z.VRZ",
      "total: 4 files, 3 loaded, 1 failed; 3 objects, 20,024 triangles; [0-9.]+ m?s"};
  ASSERT_EQ(lines.size(), expected.size()) << output.Out;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_TRUE(std::regex_match(lines[i], std::regex(expected[i]))) << lines[i];
  }
  EXPECT_EQ(output.Status, 1);
  EXPECT_EQ(output.Error, "");
}

// The first path that gave no model decides.
TEST(Info, GivesTheStatusOfTheFirstThatFailed) {
  const TemporaryFolder folder;
  const std::string good = folder.Write("good.wrl", Cube("30")) + " ";
  const std::string bad = folder.Write("bad.wrl", "Cube {}") + " ";
  const std::string packed = folder.Write("packed.wrz", "\x1F\x8Brubbish") + " ";
  const std::string none = (folder.Path() / "none.wrl ").string();
  const std::string empty = (folder.Path() / "empty ").string();
  std::filesystem::create_directory(folder.Path() / "empty");
  EXPECT_EQ(RunTool("info " + good + good).Status, 0);
  EXPECT_EQ(RunTool("info " + good + packed + bad + none).Status, 3);
  EXPECT_EQ(RunTool("info --json " + none + packed).Status, 2);
  EXPECT_EQ(RunTool("info " + good + empty + packed).Status, 1);
  EXPECT_EQ(RunTool("info " + good + good + " >/dev/full").Status, 70);
  const ToolOutput output = RunTool("info --json " + empty);
  EXPECT_EQ(output.Error, "qelvrml: " + empty.substr(0, empty.size() - 1) + ": holds no VRML files\n");
  EXPECT_EQ(nlohmann::json::parse(output.Out)["files"].size(), 0);
}

TEST(Info, TellsTheSameAsJson) {
  const TemporaryFolder folder;
  FillFolder(folder);
  const auto several = nlohmann::json::parse(RunTool("info --json " + folder.Path().string()).Out);
  auto total = several["total"];
  EXPECT_GT(total["seconds"].get<double>(), 0.0);
  total.erase("seconds");
  EXPECT_EQ(total, nlohmann::json::parse(R"({"files":4,"loaded":3,"failed":1,"objects":3,"triangles":20024})"));
  ASSERT_EQ(several["files"].size(), 4);
  EXPECT_EQ(several["files"][1]["problem"], "not a VRML file");
  EXPECT_EQ(several["files"][1]["size"], nullptr);

  const std::string path = (folder.Path() / "c/z.VRZ").string();
  auto one = nlohmann::json::parse(RunTool("info --json " + path).Out);
  auto listed = several["files"][3];
  for (auto* file : {&one, &listed}) file->erase("seconds");
  EXPECT_EQ(one, listed);
  EXPECT_EQ(one, nlohmann::json::parse(R"({"file":")" + path +
                                       R"(","result":"VRMLLoadOK","units":"millimeters","warning":0,
      "size":[100.0,100.0,100.0],"groups":0,"objects":1,"classes":{"brixBox":1},"points":8,"faces":6,"triangles":12,
      "textures":[],"texturedObjects":0,"notes":[]})"));
}

TEST(Info, ExplainsTheUnit) {
  const TemporaryFolder folder;
  struct Case {
    const char* Width;
    const char* Units;
    const char* Size;
  };
  for (const auto& [width, units, size] :
       {Case{"1234567", "meters \\(numbers read as metres\\)", "1,234,567 x 1,234,567 x 1,234,567 meters"},
        Case{"12.3456", "centimeters \\(numbers read as metres, scaled to centimetres\\)",
             "1,234.56 x 1,234.56 x 1,234.56 centimeters"},
        Case{"0.1", "millimeters \\(numbers read as metres, scaled to millimetres\\)", "100 x 100 x 100 millimeters"},
        Case{"0.002", "microns \\(numbers read as metres, scaled to microns\\)", "2,000 x 2,000 x 2,000 microns"}}) {
    const ToolOutput output = RunTool("info " + folder.Write("s.wrl", Cube(width)), "LC_ALL=de_DE.UTF-8 ");
    EXPECT_THAT(output.Out, ContainsRegex(std::string("\nunits +") + units + "\n"));
    EXPECT_THAT(output.Out, ContainsRegex(std::string("\nsize +") + size + "\n"));
  }
}

// Runs the command with a terminal of 80 columns as its output.
std::string OnTerminal(const std::string& environment, const std::string& arguments) {
  return RunShell("TERM=xterm " + environment + " script -qec 'stty cols 80; " QELVRML_TOOL_PATH " " + arguments +
                  "' /dev/null </dev/null")
      .Out;
}

TEST(Info, HasColoursOnATerminalThatWantsThem) {
  const TemporaryFolder folder;
  const std::string good = folder.Write("good.wrl", Cube("30"));
  const std::string arguments = "info " + good + " " + folder.Write("bad.wrl", "Cube {}");
  const std::string red = "\x1b[31mfailed: not a VRML file";
  EXPECT_THAT(OnTerminal("NO_COLOR=", arguments), HasSubstr(red));
  EXPECT_THAT(OnTerminal("NO_COLOR=", "info " + good), HasSubstr("\x1b[2mobjects\x1b[0m "));
  for (const std::string objection : {"NO_COLOR=1", "TERM=dumb"}) {
    const std::string plain = OnTerminal(objection, arguments);
    EXPECT_THAT(plain, HasSubstr("failed: not a VRML file"));
    EXPECT_THAT(plain, Not(HasSubstr("\x1b[31m"))) << objection;
    EXPECT_THAT(plain, Not(HasSubstr("\x1b[2m"))) << objection;
  }
  EXPECT_THAT(RunTool(arguments, "TERM=xterm NO_COLOR= ").Out, Not(HasSubstr("\x1b")));
}

// On a terminal a line ends where that does; the figures and the name of the file are there.
TEST(Info, CutsLongPathsOnATerminalOnly) {
  const TemporaryFolder folder;
  const std::string path = folder.Write(std::string(60, 'x') + "/\xC3\xA4/g\xC3\xBCt.wrl", Cube("30"));
  const std::string arguments = "info " + path + " " + path;
  const std::string shown = OnTerminal("NO_COLOR=1", arguments);
  EXPECT_THAT(shown, HasSubstr(" .../\xC3\xA4/g\xC3\xBCt.wrl\r\n"));
  EXPECT_THAT(shown, Not(HasSubstr("xxx")));
  EXPECT_THAT(RunTool(arguments).Out, HasSubstr("  " + path + "\n"));
}

// What stands in a scene or in the name of a file is no command to the terminal.
TEST(Info, ShowsNoControlCharacters) {
  const TemporaryFolder folder;
  const std::string good = folder.Write("a\x1b[2J\n.wrl", Cube("30") + " Texture2 { filename \"t\x1b[2J\x9b.png\" }");
  const std::string bad = folder.Write("b\x1b[2J.wrl", "Cube {}");
  for (const std::string& arguments :
       {"info '" + good + "'", "info '" + bad + "'", "info " + folder.Path().string(), "dump '" + bad + "'"}) {
    const ToolOutput output = RunTool(arguments);
    EXPECT_THAT(output.Out + output.Error, Not(ContainsRegex("\x1b|[^\xC2]\x9b")));
    EXPECT_THAT(output.Out + output.Error, HasSubstr("\xEF\xBF\xBD[2J"));
  }
}

}  // namespace
