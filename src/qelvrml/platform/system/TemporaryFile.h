#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace qelvrml {

/// A new file in a new folder of its own, which only its owner can enter, in the system's temporary folder. Nobody else
/// can put anything beside it or in its place. Both go with this object.
class TemporaryFile {
public:
  TemporaryFile() = default;
  TemporaryFile(TemporaryFile&& other) noexcept { *this = std::move(other); }
  TemporaryFile& operator=(TemporaryFile&& other) noexcept {
    std::swap(Descriptor, other.Descriptor);
    Folder.swap(other.Folder);
    Path.swap(other.Path);
    return *this;
  }
  ~TemporaryFile() { Remove(); }

  /// Creates a file with that beginning and end of its name; gives its path, or nothing. An earlier one is removed.
  ///
  /// The temporary folder is that of the first of the variables TMPDIR, TMP, TEMP and TEMPDIR that isn't empty, and
  /// /tmp without one. A folder that was named and isn't one isn't replaced by another.
  std::string Create(const std::string& prefix, const std::string& extension);
  /// True if all bytes were written. A limit on the size of files makes it fail like a full disk.
  bool Write(const char* bytes, std::size_t count);
  /// Ends the writing; the file stays.
  void Close();
  /// Removes the file, and its folder unless somebody has put something there.
  void Remove();

private:
  int Descriptor = -1;
  std::string Folder;
  std::string Path;
};

}  // namespace qelvrml
