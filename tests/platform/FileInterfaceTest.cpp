#include <gtest/gtest.h>
#include <sys/stat.h>

#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/fileint/FileText.h"
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

// A pipe would make the host wait for its other end.
TEST(FileInterface, OpensRegularFilesOnly) {
  const TemporaryFolder folder;
  const std::string pipe = (folder.Path() / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  CKelFileInterface file;
  for (const std::string& path : {pipe, folder.Path().string(), std::string(), std::string("/dev/null")}) {
    EXPECT_FALSE(file.Open(path.c_str())) << path;
  }
  EXPECT_FALSE(file.Open(CBasicString(std::u16string_view(u"a\0b", 3))));
  EXPECT_FALSE(file.Open(CBasicString(u"\xD800")));
}

}  // namespace
