#include "qelvrml/platform/fileint/FolderIndex.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string_view>

#include "qelvrml/foundation/AsciiCase.h"

namespace qelvrml {
namespace {

/// A folder that is walked through; it needn't be readable for that.
class FolderHandle {
public:
  explicit FolderHandle(const char* path) : Descriptor(open(path, Flags)) {}
  FolderHandle(const FolderHandle&) = delete;
  FolderHandle& operator=(const FolderHandle&) = delete;
  ~FolderHandle() {
    if (Descriptor >= 0) close(Descriptor);
  }

  int Get() const { return Descriptor; }
  bool Holds(const std::string& name) const {
    struct stat status {};
    return fstatat(Descriptor, name.c_str(), &status, 0) == 0;
  }
  void Enter(const std::string& name) {
    const int inner = openat(Descriptor, name.c_str(), Flags);
    if (Descriptor >= 0) close(Descriptor);
    Descriptor = inner;
  }

private:
  static constexpr int Flags = O_PATH | O_DIRECTORY | O_CLOEXEC;

  int Descriptor;
};

// Takes the first component, and the separators behind it, from the front of a path.
std::string TakeComponent(std::string_view& path) {
  const std::size_t end = std::min(path.find('/'), path.size());
  std::string component(path.substr(0, end));
  path.remove_prefix(std::min(path.find_first_not_of('/', end), path.size()));
  return component;
}

}  // namespace

std::string FolderIndex::Find(const std::string& path) {
  const bool absolute = path.starts_with('/');
  FolderHandle folder(absolute ? "/" : ".");
  std::string found = absolute ? "/" : "";
  std::string_view left = path;
  left.remove_prefix(std::min(left.find_first_not_of('/'), left.size()));
  for (int components = 0; !left.empty(); ++components) {
    if (components == MostComponents || folder.Get() < 0) return {};
    std::string name = TakeComponent(left);
    if (!folder.Holds(name)) {
      const Listing& listing = ListingOf(folder.Get());
      const auto place = listing.find(LowerAscii(std::string_view(name)));
      if (place == listing.end() || place->second.empty()) return {};
      name = place->second;
    }
    found += name;
    if (left.empty()) break;
    found += '/';
    folder.Enter(name);
  }
  return found;
}

const FolderIndex::Listing& FolderIndex::ListingOf(int folder) {
  static const Listing None;
  struct stat status {};
  if (fstat(folder, &status) != 0) return None;
  const auto [place, isNew] = Listings.try_emplace({status.st_dev, status.st_ino});
  if (isNew) Read(folder, place->second);
  return place->second;
}

void FolderIndex::Read(int folder, Listing& listing) {
  const int readable = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (readable < 0) return;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(fdopendir(readable), closedir);
  if (!stream) {
    close(readable);
    return;
  }
  while (const dirent* entry = readdir(stream.get())) {
    if (EntriesLeft == 0) {  // a part of a folder can't tell which names are unique
      listing.clear();
      return;
    }
    --EntriesLeft;
    const std::string_view name = entry->d_name;
    const auto [place, isNew] = listing.try_emplace(LowerAscii(name), name);
    if (!isNew) place->second.clear();
  }
}

}  // namespace qelvrml
