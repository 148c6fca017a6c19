#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/fileint/FileText.h"
#include "qelvrml/platform/fileint/FolderIndex.h"
#include "support/Model.h"

namespace {

TEST(FileInterface, ReadsTheBeginningAndTheWhole) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("text", "0123456789");
  CKelFileInterface file;
  EXPECT_FALSE(file.GetFileHandleIsValid());
  ASSERT_TRUE(file.Open(path.c_str(), file.IdentifyFileType(path.c_str()), true));
  EXPECT_EQ(file.GetFileSize(), 10);
  char start[4] = {};
  EXPECT_EQ(file.Read(start, 4), 4);
  EXPECT_EQ(std::string(start, 4), "0123");
  EXPECT_EQ(file.Read(nullptr, 4) + file.Read(start, -1) + file.Read(start, 0), 0);
  EXPECT_TRUE(file.ReadNextBlockFromFile());
  EXPECT_EQ(std::string(file.GetBlock()->begin(), file.GetBlock()->end()), "456789");
  EXPECT_FALSE(file.ReadNextBlockFromFile());
  CKelFileInterface copy(file);
  EXPECT_FALSE(copy.GetFileHandleIsValid());
  file.Close();
  file.Close();
  EXPECT_EQ(file.Read(start, 4) + file.GetFileSize(), 0);
  EXPECT_TRUE(file.Open(folder.Write("empty", "").c_str()));
  EXPECT_EQ(file.GetFileSize(), 0);
}

// To open a pipe or a device can have effects: they aren't even touched.
TEST(FileInterface, OpensRegularFilesOnly) {
  const TemporaryFolder folder;
  const std::string pipe = (folder.Path() / "pipe").string();
  const std::string zero = (folder.Path() / "zero").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/zero", zero);
  const int events = inotify_init1(IN_NONBLOCK);
  ASSERT_GE(inotify_add_watch(events, pipe.c_str(), IN_OPEN), 0);
  CKelFileInterface file;
  for (const std::string& path : {pipe, zero, folder.Path().string(), std::string(), std::string("/dev/tty")}) {
    EXPECT_FALSE(file.Open(path.c_str())) << path;
  }
  std::array<char, 512> event{};
  EXPECT_LT(read(events, event.data(), event.size()), 0) << "the pipe was opened";
  close(events);
  EXPECT_FALSE(file.Open(CBasicString(std::u16string_view(u"a\0b", 3))));
  EXPECT_FALSE(file.Open(CBasicString(u"\xD800")));
  const std::string link = (folder.Path() / "link").string();
  std::filesystem::create_symlink(folder.Write("text", "0"), link);
  EXPECT_TRUE(file.Open(link.c_str()));
}

TEST(FolderIndex, FindsTheOneThatDiffersInCase) {
  const TemporaryFolder folder;
  const std::string root = folder.Path().string();
  for (const char* name : {"Sub/Deep/One.wrl", "two.wrl", "TWO.wrl", "\xC3\x84.wrl", "i.wrl"}) folder.Write(name, "");
  qelvrml::FolderIndex index;
  for (const auto& [asked, found] :
       std::vector<std::pair<std::string, std::string>>{{"/sub/deep/ONE.WRL", "/Sub/Deep/One.wrl"},
                                                        {"/sub/./../SUB//deep/one.wrl", "/Sub/./../Sub/Deep/One.wrl"},
                                                        {"/two.wrl", "/two.wrl"},
                                                        {"/Two.wrl", ""},       // more than one
                                                        {"/\xC3\xA4.wrl", ""},  // the case of ASCII letters alone
                                                        {"/I.wrl", "/i.wrl"},
                                                        {"/two.wrl/x", ""},
                                                        {"/none", ""}}) {
    EXPECT_EQ(index.Find(root + asked), found.empty() ? "" : root + found) << asked;
  }
  std::string deep = root;
  const auto components = std::count(deep.begin(), deep.end(), '/');
  for (auto i = components + 1; i < qelvrml::FolderIndex::MostComponents; ++i) deep += "/.";
  EXPECT_NE(index.Find(deep + "/I.wrl"), "");
  EXPECT_EQ(index.Find(deep + "/./I.wrl"), "");
}

// What was added behind the reading isn't seen, by whatever path the folder is named, and a folder that doesn't fit has
// no other cases.
TEST(FolderIndex, ReadsAFolderOnce) {
  const TemporaryFolder folder;
  const std::string root = folder.Path().string();
  folder.Write("sub/one", "");
  qelvrml::FolderIndex index;
  EXPECT_NE(index.Find(root + "/sub/ONE"), "");
  folder.Write("sub/later", "");
  EXPECT_EQ(index.Find(root + "/sub/../sub/LATER"), "");
  EXPECT_NE(index.Find(root + "/sub/later"), "");
  EXPECT_NE(qelvrml::FolderIndex(4).Find(root + "/sub/LATER"), "") << "with . and .. four entries";
  EXPECT_EQ(qelvrml::FolderIndex(3).Find(root + "/sub/LATER"), "");
}

}  // namespace
