#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Model.h"
#include "support/Tool.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Tool, DumpsTheModelAsJson) {
  const TemporaryFolder folder;
  const std::string path =
      folder.Write("cube.wrl", "#VRML V1.0 ascii\nDEF g Separator { DEF c\xE4 Cube { width 50.1 } }");
  const ToolOutput output = RunTool("dump " + path);
  EXPECT_EQ(output.Status, 0);
  EXPECT_THAT(
      output.Out,
      StartsWith(
          R"({"result":"VRMLLoadOK","units":"meters","warning":0,"world":{"name":"","objects":[],"groups":[{"name":"g","objects":[{"type":"brixBox")"));
  EXPECT_THAT(output.Out, HasSubstr("[-25.05,-1.0,-1.0]")) << "floats in their shortest form";
  EXPECT_THAT(output.Out, HasSubstr("\"name\":\"c\xEF\xBF\xBD\"")) << "a name that isn't UTF-8";
  EXPECT_THAT(output.Out, HasSubstr(R"("diffuse":[1.0,1.0,1.0,1.0])"));
  EXPECT_EQ(output.Error, "");
  EXPECT_EQ(RunTool("dump " + path + " >/dev/full 2>&1; exit $?; :").Status, 70) << "a full disk";
}

TEST(Tool, ObjectsOfEveryClass) {
  const std::string path = QELVRML_TEST_SCENES "/every-class.wrl";
  const ToolOutput dump = RunTool("dump " + path);
  const std::string identity = "1.0,0.0,0.0,0.0,0.0,1.0,0.0,0.0,0.0,0.0,1.0,0.0,0.0,0.0,0.0,1.0";
  const std::string three = R"("points":[[0.0,0.0,0.0],[4.0,0.0,0.0],[0.0,4.0,0.0])";
  for (const std::string& fields :
       {std::string(R"("height":400.0,"bottomRadius":30.0,"topRadius":0.0,"matrix":[)"),
        std::string(R"("innerRadius":0.0,"outerRadius":30.0,"matrix":[)"),
        std::string(R"("height":8.0,"radius":5.0,"matrix":[)"), R"("radius":7.0,"matrix":[)" + identity + "]}",
        std::string(R"("points":[[-1.0,-1.0,-1.0],[1.0,-1.0,-1.0])"), std::string(R"("point":[4.0,0.0,0.0]})"),
        three + R"(,[4.0,4.0,0.0]],"faces":[[0,1,2],[1,3,2]]})", three + "]}",
        std::string(R"("points":[[0.0,0.0,0.0],[4.0,0.0,0.0],[4.0,4.0,0.0]]})"),
        three + R"(,[4.0,4.0,0.0]],"normals":[],"counts":[4]})",
        std::string(R"("rows":2,"columns":2,"points":[[0.0,0.0,0.0])")})
    EXPECT_THAT(dump.Out, HasSubstr(fields));
  const ToolOutput info = RunTool("info " + path);
  for (const std::string line :
       {"size +60 x 400 x 60 meters", "objects +13", "  brixDisk +3", "  CKelPolygon +1", "points +27", "faces +12",
        "groups +0"})  // 8 + 1 + 4 + 3 + 3 + 4 + 4, 6 + 2 + 1 + 2 + 1
    EXPECT_THAT(info.Out, testing::ContainsRegex(line + "\n"));
}

TEST(Tool, ShowsTexturesAndWhatIsMissing) {
  const TemporaryFolder folder;
  std::filesystem::copy_file(std::string(QELVRML_TEST_SCENES) + "/tile.png", folder.Path() / "tile.png");
  const std::string path = folder.Write("s.wrl", R"(#VRML V2.0 utf8
    Shape { appearance Appearance { texture ImageTexture { url "tile.png" } textureTransform TextureTransform { rotation 1.5 } }
      geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 1 2 ]
        texCoord TextureCoordinate { point [ 0 0, 1 0, 0 1 ] } } }
    Shape { appearance Appearance { texture ImageTexture { url "images/none.png" } } geometry Box {} } Inline { url "part.wrl" })");
  const ToolOutput dump = RunTool("dump " + path);
  EXPECT_THAT(dump.Out, HasSubstr(R"("textures":[{"id":1,"name":"tile.png","width":3,"height":2}])"));
  EXPECT_THAT(dump.Out, HasSubstr(R"("texture":{"id":1,"wrapS":1,"wrapT":1,"rotation":85.94)"));
  const ToolOutput info = RunTool("info " + path);
  EXPECT_THAT(info.Out, HasSubstr("3 x 2 pixels"));
  for (const std::string missing : {"images/none.png", "none.png", "part.wrl"}) {
    EXPECT_THAT(info.Out, HasSubstr("  " + missing + ": not found, once, in line 5\n"));
  }
}

// One line on standard error, and a status, for each way in which a load can fail.
TEST(Tool, SaysWhatWentWrong) {
  const TemporaryFolder folder;
  struct Case {
    std::string Path;
    int Status;
    std::string Words;
  };
  const std::string secret = folder.Write("secret.wrl", "#VRML V1.0 ascii\n");
  chmod(secret.c_str(), 0);
  std::vector<Case> cases = {
      {folder.Path() / "missing.wrl", 2, "no such file"},
      {folder.Path(), 2, "is a folder"},
      {folder.Write("text.wrl", "Cube {}"), 1, "not a VRML file"},
      {folder.Write("empty.wrl", ""), 1, "not a VRML file"},
      {folder.Write("bad.wrl", "#VRML V1.0 ascii\nRotation {}"), 1, "nothing in it could be loaded"},
      {folder.Write("packed.gz", "\x1F\x8Brubbish"), 3, "can't be unpacked"}};
  if (geteuid() != 0) cases.push_back({secret, 2, "no permission"});
  for (const auto& [path, status, words] : cases) {
    const ToolOutput output = RunTool("dump " + path);
    EXPECT_EQ(output.Status, status) << path;
    EXPECT_THAT(output.Error, HasSubstr(words));
    EXPECT_EQ(std::count(output.Error.begin(), output.Error.end(), '\n'), 1) << output.Error;
    EXPECT_THAT(output.Out, StartsWith("{\"result\":\"VRMLLoad")) << "JSON for every result";
    if (words != "is a folder") {  // info looks into those
      EXPECT_EQ(RunTool("info " + path).Status, status);
    }
  }
}

// 65,536 boxes take about 55 MB as a model and more than twice as much as JSON.
TEST(Tool, SaysThatMemoryRanOut) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer's shadow takes more address space than that";
#endif
  const TemporaryFolder folder;
  std::string scene = "#VRML V2.0 utf8\nDEF a0 Box {}\n";
  for (int i = 1; i < 16; ++i) {
    const std::string below = "USE a" + std::to_string(i - 1) + " ";
    scene += "DEF a" + std::to_string(i) + " Group { children [ " + below + below + "] }\n";
  }
  const std::string path = folder.Write("boxes.wrl", scene);
  for (const char* megabytes : {"70", "130"}) {
    const ToolOutput output = RunTool("dump " + path, std::string("ulimit -v ") + megabytes + "000; ");
    EXPECT_EQ(output.Status, 71) << megabytes;
    EXPECT_EQ(output.Error, "qelvrml: out of memory\n") << megabytes;
  }
}

TEST(Tool, KnowsItsArguments) {
  EXPECT_EQ(RunTool("").Status, 64);
  EXPECT_EQ(RunTool("info").Error, "qelvrml: PATH is required; --help tells more\n");
  EXPECT_EQ(RunTool("draw x.wrl").Status, 64);
  EXPECT_EQ(RunTool("--help").Status, 0);
  EXPECT_THAT(RunTool("--version").Out, StartsWith("qelvrml "));
}

}  // namespace
