#include "qelvrml/platform/system/TemporaryFile.h"

#include <sys/types.h>
#include <unistd.h>
#include <cstdlib>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <system_error>

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

}  // namespace

std::string TemporaryFile::Create(const std::string& prefix, const std::string& extension) {
  Close();
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error) return {};
  std::string path = (folder / (prefix + "XXXXXX" + extension)).string();
  Descriptor = mkstemps(path.data(), static_cast<int>(extension.size()));
  return Descriptor >= 0 ? path : std::string();
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

}  // namespace qelvrml
