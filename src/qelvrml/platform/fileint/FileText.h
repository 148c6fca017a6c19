#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace qelvrml {

/// The whole text of a file or a buffer in memory. A NUL stands behind it, which a scan may use as its end mark.
class FileText {
public:
  /// Room for `size` bytes, not yet filled.
  explicit FileText(std::size_t size) : Bytes(new char[size + 1]), Size(size) { Bytes[size] = '\0'; }
  explicit FileText(std::string_view text) : FileText(text.size()) {
    if (!text.empty()) std::memcpy(Bytes.get(), text.data(), text.size());
  }

  char* GetBytes() { return Bytes.get(); }
  void Truncate(std::size_t size) {
    Size = size;
    Bytes[size] = '\0';
  }

  const char* begin() const { return Bytes.get(); }
  const char* end() const { return Bytes.get() + Size; }
  std::size_t GetSize() const { return Size; }

private:
  std::unique_ptr<char[]> Bytes;
  std::size_t Size;
};

}  // namespace qelvrml
