#include "qelvrml/platform/system/PathParts.h"

namespace qelvrml {
namespace {

std::size_t DirectoryLength(std::u16string_view path) { return path.find_last_of(u"/\\") + 1; }

}  // namespace

std::u16string_view DirectoryOf(std::u16string_view path) { return path.substr(0, DirectoryLength(path)); }

std::u16string_view LastComponentOf(std::u16string_view path) {
  const std::size_t directory = DirectoryLength(path);
  if (directory == 0 && path.size() >= 2 && path[1] == u':') return path.substr(2);
  return path.substr(directory);
}

}  // namespace qelvrml
