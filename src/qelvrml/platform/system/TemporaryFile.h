#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace qelvrml {

/// A new file in the system's temporary folder, which only its owner can read. It is written through the descriptor
/// that has created it, so that nobody can put another one in its place.
class TemporaryFile {
public:
  TemporaryFile() = default;
  TemporaryFile(TemporaryFile&& other) noexcept : Descriptor(std::exchange(other.Descriptor, -1)) {}
  TemporaryFile& operator=(TemporaryFile&& other) noexcept {
    std::swap(Descriptor, other.Descriptor);
    return *this;
  }
  ~TemporaryFile() { Close(); }

  /// Creates a file with that beginning and end of its name; gives its path, or nothing.
  std::string Create(const std::string& prefix, const std::string& extension);
  /// True if all bytes were written. A limit on the size of files makes it fail like a full disk.
  bool Write(const char* bytes, std::size_t count);
  /// Ends the writing; the file stays.
  void Close();

private:
  int Descriptor = -1;
};

}  // namespace qelvrml
