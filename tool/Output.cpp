#include "Output.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "text/Text.h"

namespace {

namespace fs = std::filesystem;

std::string Failure(const std::string& path, const std::string& why) {
  return "can't write " + Printable(path) + ": " + why;
}

/// A file beside its place, removed at the end unless it was renamed.
class PartialFile {
public:
  explicit PartialFile(const std::string& path) : Target(path) {
    constexpr int MostTries = 100;
    static std::atomic<unsigned> next = 0;
    const fs::path folder = fs::path(path).parent_path();
    const std::string start = ".qelvrml-" + std::to_string(getpid()) + "-";
    // The mode that any new file has; the umask of the process isn't touched, since other threads write files, too.
    for (int i = 0; i < MostTries && Descriptor < 0; ++i) {
      Path = (folder / (start + std::to_string(next++))).string();
      Descriptor = open(Path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (Descriptor < 0 && errno != EEXIST) break;
    }
    if (Descriptor < 0) Path.clear();
  }
  PartialFile(PartialFile&& other) noexcept
      : Target(std::move(other.Target)),
        Path(std::exchange(other.Path, "")),
        Descriptor(std::exchange(other.Descriptor, -1)) {}
  PartialFile(const PartialFile&) = delete;
  PartialFile& operator=(const PartialFile&) = delete;
  PartialFile& operator=(PartialFile&&) = delete;
  ~PartialFile() {
    if (Descriptor >= 0) close(Descriptor);
    if (!Path.empty()) unlink(Path.c_str());
  }

  // False, with errno, when something fails.
  bool Write(std::string_view bytes) {
    while (Descriptor >= 0 && !bytes.empty()) {
      const ssize_t written = write(Descriptor, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return Descriptor >= 0 && close(std::exchange(Descriptor, -1)) == 0;
  }
  bool Rename(Existing existing) {
    if (existing == Existing::Replace) {
      if (rename(Path.c_str(), Target.c_str()) != 0) return false;
      Path.clear();
      return true;
    }
    // A link, unlike a name, never takes the place of another.
    if (link(Path.c_str(), Target.c_str()) == 0) return true;
    if (errno == EEXIST) return false;
    std::error_code unknown;
    if (fs::exists(fs::symlink_status(Target, unknown))) {
      errno = EEXIST;
      return false;
    }
    return Rename(Existing::Replace);  // a file system without links
  }

private:
  std::string Target;
  std::string Path;
  int Descriptor = -1;
};

std::string Reason(int error) {
  return error == EEXIST ? "it's there already; --force replaces it" : std::strerror(error);
}

}  // namespace

std::string WriteFiles(std::span<const OutputFile> files, Existing existing) {
  std::vector<PartialFile> partial;
  for (const OutputFile& file : files) {
    std::error_code unknown;
    if (existing == Existing::Keep && fs::exists(fs::symlink_status(file.Path, unknown))) {
      return Failure(file.Path, Reason(EEXIST));
    }
    errno = 0;
    if (!partial.emplace_back(file.Path).Write(file.Bytes)) return Failure(file.Path, Reason(errno));
  }
  for (std::size_t i = 0; i < partial.size(); ++i) {
    if (partial[i].Rename(existing)) continue;
    const int error = errno;
    for (std::size_t done = 0; existing == Existing::Keep && done < i; ++done) unlink(files[done].Path.c_str());
    return Failure(files[i].Path, Reason(error));
  }
  return "";
}
