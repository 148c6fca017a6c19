#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <tuple>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Model.h"

namespace {

const std::string Header = "#VRML V2.0 utf8\n";

class SubfileTest : public testing::Test {
protected:
  Model LoadMain(const std::string& scene) { return LoadFile(Folder.Write("main.wrl", Header + scene)); }
  TemporaryFolder Folder;
};

TEST_F(SubfileTest, NodesLandInThePlaceOfTheNode) {
  Folder.Write("part.wrl", Header + "DEF b Box {} PROTO Ball [] { Sphere {} }");
  const Model model =
      LoadMain(R"(Transform { translation 1 0 0 children Inline { bboxSize 1 1 1 url [ "part.wrl" "other.wrl" ] } }
    USE b Ball { })");
  ASSERT_EQ(model.Classes(), "brixBox brixBox brixSphere") << "names and prototypes of the file stay";
  EXPECT_THAT(model.Centre(0), IsPoint(1, 0, 0));
  EXPECT_EQ(model.Name(0), "b");
}

// Only the last component of a URL counts, and it is looked for beside the file that names it.
TEST_F(SubfileTest, NamesBecomePathsBesideTheFile) {
  Folder.Write("part.wrl", Header + "Box {}");
  Folder.Write("plain", "#VRML V1.0 ascii\nSphere {}");
  for (const std::string url : {"part.wrl", "sub/part.wrl", "../part.wrl", "http://host/a/b/part.wrl",
                                "c:\\\\models\\\\part.wrl", "C:part.wrl", "PART.wrl"}) {
    EXPECT_EQ(LoadMain("Inline { url \"" + url + "\" }").Classes(), "brixBox") << url;
  }
  EXPECT_EQ(LoadMain("Inline { url \"plain\" }").Classes(), "brixSphere")
      << "a file of version 1.0, without an extension";
  EXPECT_EQ(LoadMain("WWWInline { name \"part.wrl\" } Sphere {}").Classes(), "brixBox brixSphere");
}

TEST_F(SubfileTest, NestedFilesLookBesideThemselves) {
  Folder.Write("part.wrl", Header + "Sphere {}");
  const std::string main = Folder.Write("main.wrl", Header + "Inline { url \"middle.wrl\" } Box {}");
  Folder.Write("middle.wrl", Header + "Inline { url \"part.wrl\" } DEF m Box {}");
  EXPECT_EQ(LoadFile(main).Classes(), "brixSphere brixBox brixBox");
}

TEST_F(SubfileTest, MissingFilesAreNoted) {
  Folder.Write("text.wrl", "no header");
  const Model model =
      LoadMain(R"(Inline { url "none.wrl" } Inline { url "none.wrl" } Inline { url "text.wrl" } Inline { }
    Inline { url [ ] } Inline { url word.wrl } EXTERNPROTO P [ field SFFloat f ] "lost.wrl#P" Box {})");
  EXPECT_EQ(model.Classes(), "brixBox");
  std::vector<std::string> missing;
  for (const CBasicString& path : model.Parser->GetMissingFiles())
    missing.push_back(std::filesystem::path(path.GetNarrowText()).filename());
  EXPECT_THAT(missing, testing::ElementsAre("none.wrl", "word.wrl", "lost.wrl#P"));
}

TEST_F(SubfileTest, ExternPrototypesAreReadInPlace) {
  Folder.Write("lib.wrl", Header + "PROTO Ball [ field SFFloat r 1 ] { Sphere { radius IS r } } Box {}");
  const Model model = LoadMain(R"(EXTERNPROTO Ball [ field SFFloat r ] [ "lib.wrl" "other.wrl" ] Ball { r 3 }
    EXTERNPROTO Other [ ] "lib.wrl" Other { })");
  EXPECT_EQ(model.Classes(), "brixBox brixSphere brixBox");
  EXPECT_THAT(model.Extents(1), IsPoint(6, 6, 6));
}

TEST_F(SubfileTest, CirclesEnd) {
  EXPECT_EQ(LoadMain("Box {} Inline { url \"main.wrl\" }").Size(), 1U);
  Folder.Write("a.wrl", Header + "Box {} Inline { url \"b.wrl\" }");
  Folder.Write("b.wrl", Header + "Box {} Inline { url \"a.wrl\" } Inline { url \"MAIN.wrl\" }");
  EXPECT_EQ(LoadMain("Inline { url \"a.wrl\" } Sphere {}").Size(), 3U);
}

TEST_F(SubfileTest, NestingIsBounded) {
  for (int i = 0; i < 20; ++i) {
    Folder.Write("f" + std::to_string(i) + ".wrl",
                 Header + "Box {} Inline { url \"f" + std::to_string(i + 1) + ".wrl\" }");
  }
  EXPECT_EQ(LoadMain("Inline { url \"f0.wrl\" } Sphere {}").Size(), 16U + 1U);
}

TEST_F(SubfileTest, SkippedInlinesHaveNoEffect) {
  Folder.Write("part.wrl", Header + "DEF p Box {}");
  EXPECT_EQ(LoadMain("Collision { proxy DEF x Inline { url \"part.wrl\" } } USE p Sphere {}").Classes(), "brixSphere");
}

// A host's callback can change the files of a scene while it is read: what was read before counts.
TEST_F(SubfileTest, FilesThatChangeWhileTheyAreRead) {
  static const TemporaryFolder* folder;
  folder = &Folder;
  Folder.Write("cut.wrl", Header + "Sphere {}");
  Folder.Write("pipe.wrl", Header + "Sphere {}");
  Folder.Write("new.wrl", Header + "Sphere {}");
  Folder.Write("zero.wrl", Header + "Sphere {}");
  const std::string main =
      Folder.Write("main.wrl", Header + R"(Box {} Inline { url "cut.wrl" } Inline { url "pipe.wrl" }
    EXTERNPROTO Z [ ] "zero.wrl" Inline { url "new.wrl" } Box {})");
  Model model;
  model.Parser->SetLoaderPtr([](int /*percentage*/) {
    for (const char* name : {"main.wrl", "cut.wrl"}) std::filesystem::resize_file(folder->Path() / name, 20);
    for (const char* name : {"pipe.wrl", "zero.wrl"}) std::filesystem::remove(folder->Path() / name);
    mkfifo((folder->Path() / "pipe.wrl").c_str(), 0600);
    std::filesystem::create_symlink("/dev/zero", folder->Path() / "zero.wrl");
    std::filesystem::rename(folder->Write("newer", Header + "Cone { bottom FALSE }"), folder->Path() / "new.wrl");
  });
  EXPECT_EQ(model.Parser->Parse(model.World.get(), main.c_str()), VRMLLoadOK);
  EXPECT_EQ(model.Classes(), "brixBox brixCone brixBox");
  EXPECT_EQ(model.Parser->GetMissingFiles().size(), 2U);
  for (const char* name : {"pipe.wrl", "zero.wrl"})
    EXPECT_EQ(LoadFile((Folder.Path() / name).string()).Result, VRMLLoadOpenFailed) << name;
}

// The scenes of hostile/ that ask for files: names of many components, one image under many
// names, which are two in the end, missing files.
TEST_F(SubfileTest, HostileScenesEnd) {
  const std::string scenes = QELVRML_TEST_SCENES;
  for (const auto& [name, textures, missing] :
       {std::tuple("files-dots.wrl.gz", 0, 1U), std::tuple("files-spellings.wrl", 2, 0U),
        std::tuple("files-missing.wrl.gz", 0, 2U * 3000U)}) {
    Model model;
    model.World->GetTextureManager()->AddAlternatePath(scenes.c_str());
    const std::string path = scenes + "/hostile/" + name;
    EXPECT_EQ(model.Parser->Parse(model.World.get(), path.c_str()), VRMLLoadOK) << name;
    CheckModel(*model.World);
    EXPECT_EQ(model.World->GetTextureManager()->GetNumberTextures(), textures) << name;
    EXPECT_EQ(model.Parser->GetMissingFiles().size(), missing) << name;
  }
}

class SupportParser : public CVRMLParser {
public:
  using CVRMLParser::FileExists;
  using CVRMLParser::GetResolvedFile;
};

TEST_F(SubfileTest, TheHostResolvesSupportFiles) {
  SupportParser parser;
  EXPECT_EQ(parser.GetResolvedFile("a.png").GetLength(), 0) << "no callback";
  parser.GetIOManager()->SetFilename("scene.wrl");
  parser.SetGetSupportFilePtr([](CBasicString current, CBasicString wanted, CBasicString& path) {
    path = current + "/" + wanted;
    return wanted == "bad.png" ? 0 : 1;
  });
  EXPECT_TRUE(parser.GetResolvedFile("a.png") == "scene.wrl/a.png");
  EXPECT_EQ(parser.GetResolvedFile("bad.png").GetLength(), 0);
  EXPECT_TRUE(SupportParser::FileExists(Folder.Write("x", "").c_str()));
  EXPECT_FALSE(SupportParser::FileExists(Folder.Path().c_str()));
  EXPECT_FALSE(SupportParser::FileExists(""));
}

}  // namespace
