#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace qelvrml {

/// The whole text of a file or a buffer in memory. NULs stand behind it, which a scan may use as its end mark; so many
/// bytes may be looked at behind each of its own.
class FileText {
public:
  static constexpr std::size_t Padding = 16;

  /// Room for `size` bytes, not yet filled.
  explicit FileText(std::size_t size);
  explicit FileText(std::string_view text);

  char* GetBytes() { return Bytes.get(); }
  void Truncate(std::size_t size);

  const char* begin() const { return Bytes.get(); }
  const char* end() const { return Bytes.get() + Size; }
  std::size_t GetSize() const { return Size; }

private:
  std::unique_ptr<char[]> Bytes;
  std::size_t Size = 0;
};

}  // namespace qelvrml
