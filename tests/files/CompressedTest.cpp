#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <zip.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <tuple>

#include "support/Gzip.h"
#include "support/Model.h"

namespace {

const std::string Scene = "#VRML V1.0 ascii\nDEF box Cube {} Sphere {}\n";

struct Member {
  std::string Name;
  std::string Text;
};

std::string Zip(const TemporaryFolder& folder, const std::vector<Member>& members, bool encrypted = false) {
  const std::string path = (folder.Path() / "made.zip").string();
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const Member& member : members) {
    if (member.Name.ends_with('/')) {
      zip_dir_add(archive, member.Name.c_str(), 0);
      continue;
    }
    zip_source_t* source = zip_source_buffer(archive, member.Text.data(), member.Text.size(), 0);
    const auto index = static_cast<zip_uint64_t>(zip_file_add(archive, member.Name.c_str(), source, 0));
    if (encrypted) zip_file_set_encryption(archive, index, ZIP_EM_AES_256, "secret");
  }
  zip_close(archive);
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Loads files with a temporary folder of its own, which has to be empty after every load.
class CompressedTest : public testing::Test {
protected:
  CompressedTest() {
    std::filesystem::create_directory(Temporary());
    setenv("TMPDIR", Temporary().c_str(), 1);
  }
  ~CompressedTest() override { unsetenv("TMPDIR"); }

  std::filesystem::path Temporary() const { return Folder.Path() / "tmp"; }
  Model LoadPacked(const std::string& bytes) {
    Model model = LoadFile(Folder.Write("packed", bytes));
    EXPECT_TRUE(std::filesystem::is_empty(Temporary())) << "a temporary file is left";
    return model;
  }
  TemporaryFolder Folder;
};

TEST_F(CompressedTest, GzipFilesLoad) {
  EXPECT_EQ(LoadPacked(Gzip(Scene)).Classes(), "brixBox brixSphere");
  std::string older = Gzip(Scene);
  older[1] = '\x9E';
  EXPECT_EQ(LoadPacked(older).Classes(), "brixBox brixSphere");
  EXPECT_EQ(LoadPacked(Gzip(Scene) + Gzip("Cone {}") + "trailing bytes").Classes(),
            "brixBox brixSphere brixCone brixDisk");
}

// It lies in a folder of its own, so that nobody else can put files beside it.
TEST_F(CompressedTest, TheTemporaryFileIsPrivateWhileItIsRead) {
  namespace fs = std::filesystem;
  static fs::path temporary;
  static CVRMLParser* reading;
  static int seen;
  Model model;
  seen = 0;
  temporary = Temporary();
  reading = model.Parser.get();
  model.Parser->SetLoaderPtr([](int /*percentage*/) {
    const fs::path file = reading->GetIOManager()->GetFilename().GetNarrowText();
    EXPECT_EQ(file.parent_path().parent_path(), temporary);
    EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
    EXPECT_EQ(std::distance(fs::directory_iterator(temporary), {}), 1);
    EXPECT_TRUE(file.parent_path().filename().string().starts_with("VRML")) << file;
    EXPECT_TRUE(file.filename().string().starts_with("VRML") && file.extension() == ".wrl") << file;
    ++seen;
  });
  EXPECT_EQ(model.Parser->Parse(model.World.get(), Folder.Write("packed", Gzip(Scene)).c_str()), VRMLLoadOK);
  EXPECT_GT(seen, 0);
}

// Whatever a host does while the file is read: its folder vanishes, or the host leaves the load by an exception.
TEST_F(CompressedTest, NoTemporaryFileOutlivesItsLoad) {
  static std::filesystem::path temporary;
  temporary = Temporary();
  CKelWorld world;
  CVRMLParser parser;
  const std::string path = Folder.Write("packed", Gzip(Scene));
  parser.SetLoaderPtr([](int /*percentage*/) { throw std::runtime_error("the host has enough"); });
  EXPECT_THROW(parser.Parse(&world, path.c_str()), std::runtime_error);
  EXPECT_TRUE(std::filesystem::is_empty(temporary));
  parser.SetLoaderPtr([](int /*percentage*/) { std::filesystem::remove_all(temporary); });
  EXPECT_EQ(parser.Parse(&world, path.c_str()), VRMLLoadOK);
  EXPECT_EQ(parser.Parse(&world, path.c_str()), VRMLLoadDecompressFailed) << "the folder is gone";
}

// A copy that a callback makes meanwhile reads its own file, and leaves the original's alone.
TEST_F(CompressedTest, TheTemporaryFileIsNotThatOfACopy) {
  static Model* reading;
  static std::string plain;
  Model model;
  reading = &model;
  plain = Folder.Write("plain", "#VRML V1.0 ascii\nCone { parts SIDES }");
  model.Parser->SetLoaderPtr([](int /*percentage*/) {
    CVRMLParser copy(*reading->Parser);
    copy.SetLoaderPtr(nullptr);
    CKelWorld world;
    EXPECT_EQ(copy.Parse(&world, plain.c_str()), VRMLLoadOK);
    EXPECT_STREQ(world.GetObjectAt(0)->GetClassName(), "brixCone");
    EXPECT_TRUE(std::filesystem::exists(reading->Parser->GetIOManager()->GetFilename().GetNarrowText()));
  });
  EXPECT_EQ(model.Parser->Parse(model.World.get(), Folder.Write("packed", Gzip(Scene)).c_str()), VRMLLoadOK);
  EXPECT_EQ(model.Classes(), "brixBox brixSphere");
}

TEST_F(CompressedTest, ZipFilesGiveTheirScene) {
  const Member scene = {"models/scene.WRL", Scene};
  EXPECT_EQ(LoadPacked(Zip(Folder, {{"models/", ""},
                                    {"readme.txt", "text"},
                                    {"__MACOSX/scene.wrl", "x"},
                                    {"models/.hidden.wrl", "x"},
                                    scene}))
                .Result,
            VRMLLoadOK);
  EXPECT_EQ(LoadPacked(Zip(Folder, {{"folder/", ""}, {"other.x", Scene}})).Result, VRMLLoadOK)
      << "the first that isn't a folder";
  EXPECT_EQ(LoadPacked(Zip(Folder, {{"readme.txt", "text"}})).Result, VRMLLoadFailed) << "no VRML in it";
  EXPECT_EQ(LoadPacked(Zip(Folder, {{"folder/", ""}})).Result, VRMLLoadDecompressFailed);
  EXPECT_EQ(LoadPacked(Zip(Folder, {scene}, true)).Result, VRMLLoadDecompressFailed) << "encrypted";
  std::string damaged = Zip(Folder, {{"a.wrl", Scene + std::string(200, ' ')}});
  damaged[45] = static_cast<char>(damaged[45] ^ 0x55);
  EXPECT_EQ(LoadPacked(damaged).Result, VRMLLoadDecompressFailed);
}

TEST_F(CompressedTest, WhatLooksPackedAndWhatDoesNot) {
  struct Case {
    std::string Bytes;
    VRMLLoadResultTypes Result;
  };
  for (const auto& [bytes, result] :
       {Case{"\x1F\x8B"
             "rubbish",
             VRMLLoadDecompressFailed},
        Case{"\x1F\x1E"
             "pack",
             VRMLLoadDecompressFailed},
        Case{"\x1F\xA0", VRMLLoadDecompressFailed}, Case{"PK\x03\x04 rubbish", VRMLLoadDecompressFailed},
        Case{"PK is text", VRMLLoadFailed}, Case{"\x1F", VRMLLoadFailed}, Case{"PK\x03", VRMLLoadFailed},
        Case{Gzip("no header"), VRMLLoadFailed}, Case{Gzip(""), VRMLLoadDecompressFailed}}) {
    const Model model = LoadPacked(bytes);
    EXPECT_EQ(model.Result, result) << testing::PrintToString(bytes);
    EXPECT_EQ(model.Parser->GetLastWarning(), 0);
  }
}

// Every truncation and a flipped bit at every offset: loaded or refused, and nothing stays behind.
TEST_F(CompressedTest, DamageAtEveryOffset) {
  for (const std::string& sound : {Gzip(Scene), Zip(Folder, {{"a.wrl", Scene}})}) {
    for (std::size_t i = 0; i < sound.size(); ++i) {
      SCOPED_TRACE(i);
      LoadPacked(sound.substr(0, i));
      std::string flipped = sound;
      flipped[i] = static_cast<char>(flipped[i] ^ 0x10);
      LoadPacked(flipped);
    }
  }
  std::string wrongCheck = Gzip(Scene);
  wrongCheck[wrongCheck.size() - 5] = static_cast<char>(wrongCheck[wrongCheck.size() - 5] ^ 1);
  EXPECT_EQ(LoadPacked(wrongCheck).Result, VRMLLoadDecompressFailed);
}

// A stream that breaks off behind its first chunk of 1,024,000 bytes gives what was before.
TEST_F(CompressedTest, ATruncatedStreamGivesItsBeginning) {
  std::string noise = Scene + "# ";
  for (unsigned i = 1, x = 7; i < 1300000; ++i, x = x * 1664525U + 1013904223U)
    noise += static_cast<char>('a' + (x >> 24U) % 26);
  const std::string packed = Gzip(noise + "\nCone {}");
  const Model model = LoadPacked(packed.substr(0, packed.size() - 1000));
  EXPECT_EQ(model.Classes(), "brixBox brixSphere");
}

// A chunk of 1,024,000 bytes that was written whole makes a load, as far as it goes.
TEST_F(CompressedTest, WithoutRoomTheFileCannotBeUnpacked) {
  const std::string text = Scene + std::string(1'100'000, ' ') + "Cone {}";
  for (const auto& [packed, room, result, classes] :
       {std::tuple(Gzip(text), 0U, VRMLLoadDecompressFailed, ""),
        std::tuple(Gzip(text), 1'023'999U, VRMLLoadDecompressFailed, ""),
        std::tuple(Gzip(text), 1'024'010U, VRMLLoadOK, "brixBox brixSphere"),
        std::tuple(Zip(Folder, {{"a.wrl", text}}), 1'024'010U, VRMLLoadDecompressFailed, "")}) {
    const std::string path = Folder.Write("packed", packed);
    rlimit earlier{};
    getrlimit(RLIMIT_FSIZE, &earlier);
    rlimit little = earlier;
    little.rlim_cur = room;
    setrlimit(RLIMIT_FSIZE, &little);
    Model model;
    model.Result = model.Parser->Parse(model.World.get(), path.c_str());
    setrlimit(RLIMIT_FSIZE, &earlier);
    EXPECT_EQ(model.Result, result) << room;
    EXPECT_EQ(model.Classes(), classes) << room;
    EXPECT_TRUE(std::filesystem::is_empty(Temporary())) << room;
  }
}

// An empty variable names no folder; one that names something else isn't replaced by another place.
TEST_F(CompressedTest, TheTemporaryFolderIsTheUsersChoice) {
  const std::string path = Folder.Write("packed", Gzip(Scene));
  for (const auto& [folder, result] :
       {std::pair(std::string(), VRMLLoadOK), std::pair(std::string("/no/such/folder"), VRMLLoadDecompressFailed),
        std::pair(path, VRMLLoadDecompressFailed)}) {
    setenv("TMPDIR", folder.c_str(), 1);
    CKelWorld world;
    EXPECT_EQ(CVRMLParser().Parse(&world, path.c_str()), result) << folder;
  }
}

// The file that names the subfile is the temporary one, and beside it is nothing that others could put there.
TEST_F(CompressedTest, SubfilesAreLookedForBesideTheTemporaryFile) {
  static CVRMLParser* reading;
  static std::filesystem::path beside;
  const std::string packed = Folder.Write("packed", Gzip("#VRML V2.0 utf8\nBox {} Inline { url \"part.wrl\" }"));
  Folder.Write("tmp/part.wrl", "#VRML V2.0 utf8\nSphere {}");
  Folder.Write("part.wrl", "#VRML V2.0 utf8\nSphere {}");
  EXPECT_EQ(LoadFile(packed).Classes(), "brixBox");

  Model model;
  reading = model.Parser.get();
  model.Parser->SetLoaderPtr([](int /*percentage*/) {
    beside = std::filesystem::path(reading->GetIOManager()->GetFilename().GetNarrowText()).replace_filename("part.wrl");
    std::ofstream(beside) << "#VRML V2.0 utf8\nCone {}";
    reading->SetLoaderPtr(nullptr);
  });
  EXPECT_EQ(model.Parser->Parse(model.World.get(), packed.c_str()), VRMLLoadOK);
  EXPECT_EQ(model.Classes(), "brixBox brixCone brixDisk");
  EXPECT_TRUE(std::filesystem::exists(beside)) << "the host's own";
}

}  // namespace
