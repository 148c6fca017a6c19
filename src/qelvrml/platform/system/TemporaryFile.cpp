#include "qelvrml/platform/system/TemporaryFile.h"

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>

namespace qelvrml {
namespace {

/// Keeps the signal for a file that grows too large from this thread: the write fails, and the process goes on.
class FileSizeSignalBlock {
public:
  FileSizeSignalBlock() {
    sigemptyset(&Signals);
    sigaddset(&Signals, SIGXFSZ);
    sigset_t pending;
    sigpending(&pending);
    WasPending = sigismember(&pending, SIGXFSZ) == 1;
    pthread_sigmask(SIG_BLOCK, &Signals, &Earlier);
  }
  FileSizeSignalBlock(const FileSizeSignalBlock&) = delete;
  FileSizeSignalBlock& operator=(const FileSizeSignalBlock&) = delete;
  ~FileSizeSignalBlock() {
    const timespec noTime = {0, 0};
    if (!WasPending) sigtimedwait(&Signals, nullptr, &noTime);
    pthread_sigmask(SIG_SETMASK, &Earlier, nullptr);
  }

private:
  sigset_t Signals{};
  sigset_t Earlier{};
  bool WasPending = false;
};

std::string SystemTemporaryFolder() {
  for (const char* name : {"TMPDIR", "TMP", "TEMP", "TEMPDIR"}) {
    const char* folder = std::getenv(name);
    if (folder && *folder) return folder;
  }
  return "/tmp";
}

}  // namespace

std::string TemporaryFile::Create(const std::string& prefix, const std::string& extension) {
  Remove();
  std::string folder = SystemTemporaryFolder() + '/' + prefix + "XXXXXX";
  Path = folder + '/' + prefix + "XXXXXX" + extension;
  if (!mkdtemp(folder.data())) return {};
  Folder = std::move(folder);  // without memory a copy would leave it behind
  Path.replace(0, Folder.size(), Folder);
  Descriptor = mkostemps(Path.data(), static_cast<int>(extension.size()), O_CLOEXEC);
  if (Descriptor >= 0) return Path;
  Path.clear();
  Remove();
  return {};
}

bool TemporaryFile::Write(const char* bytes, std::size_t count) {
  const FileSizeSignalBlock block;
  while (Descriptor >= 0 && count > 0) {
    const ssize_t written = write(Descriptor, bytes, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
  return Descriptor >= 0;
}

void TemporaryFile::Close() {
  if (Descriptor >= 0) close(Descriptor);
  Descriptor = -1;
}

void TemporaryFile::Remove() {
  Close();
  if (!Path.empty()) unlink(Path.c_str());
  if (!Folder.empty()) rmdir(Folder.c_str());
  Path.clear();
  Folder.clear();
}

}  // namespace qelvrml
