#include "qelvrml/platform/fileint/CKelFileInterface.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <optional>

#include "qelvrml/foundation/TextConversion.h"
#include "qelvrml/platform/fileint/FileText.h"
#include "qelvrml/platform/fileint/FolderIndex.h"

namespace {

// -1 and an error for anything but a regular file. To open a pipe or a device can have effects, so it is looked at
// first; the path may lead elsewhere a moment later, and then the opening doesn't wait.
int OpenDescriptor(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return -1;
  if (!S_ISREG(status.st_mode)) {
    errno = EINVAL;
    return -1;
  }
  return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

}  // namespace

CKelFileInterface& CKelFileInterface::operator=(const CKelFileInterface& other) {
  if (this != &other) Close();
  return *this;
}

bool CKelFileInterface::Open(const CBasicString& path) { return Open(path, IdentifyFileType(path), true); }

bool CKelFileInterface::Open(const CBasicString& path, FileInterfaceTypes /*type*/, bool /*readOnly*/) {
  Close();
  const std::optional<std::string> narrow = qelvrml::Narrow(path.GetView());
  if (!narrow || narrow->empty() || narrow->find('\0') != std::string::npos) return false;
  Descriptor = OpenDescriptor(*narrow);
  if (Descriptor < 0 && errno == ENOENT) {
    const std::string found = Folders ? Folders->Find(*narrow) : qelvrml::FolderIndex().Find(*narrow);
    if (!found.empty()) Descriptor = OpenDescriptor(found);
  }
  struct stat status {};
  if (Descriptor < 0 || fstat(Descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    Close();
    return false;
  }
  FileSize = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
  Identity = {status.st_dev, status.st_ino};
  return true;
}

void CKelFileInterface::Close() {
  if (Descriptor >= 0) close(Descriptor);
  Descriptor = -1;
  FileSize = 0;
  ReadFailed = false;
  Block.reset();
}

int CKelFileInterface::Read(void* data, int count) {
  if (!data || count <= 0) return 0;
  return static_cast<int>(ReadBytes(static_cast<char*>(data), static_cast<std::size_t>(count)));
}

int CKelFileInterface::GetFileSize() const {
  return static_cast<int>(std::min<std::size_t>(FileSize, std::numeric_limits<int>::max()));
}

bool CKelFileInterface::ReadNextBlockFromFile() {
  if (Descriptor < 0) return false;
  auto text = std::make_shared<qelvrml::FileText>(FileSize);
  text->Truncate(ReadBytes(text->GetBytes(), FileSize));
  Block = std::move(text);
  return Block->GetSize() > 0;
}

std::size_t CKelFileInterface::ReadBytes(char* data, std::size_t count) {
  std::size_t done = 0;
  while (Descriptor >= 0 && done < count) {
    const ssize_t got = read(Descriptor, data + done, count - done);
    if (got < 0 && errno == EINTR) continue;
    ReadFailed = ReadFailed || got < 0;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}
