#include "qelvrml/platform/fileint/PathLookup.h"

#include <dirent.h>
#include <strings.h>

#include <filesystem>
#include <memory>
#include <system_error>

namespace qelvrml {
namespace {

namespace fs = std::filesystem;

// The one entry of `folder` that equals `name` without regard to case; empty when there is none, or more than one.
std::string UniqueEntry(const std::string& folder, const std::string& name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.empty() ? "." : folder.c_str()), closedir);
  std::string found;
  while (const dirent* entry = stream ? readdir(stream.get()) : nullptr) {
    if (strcasecmp(entry->d_name, name.c_str()) != 0) continue;
    if (!found.empty()) return {};
    found = entry->d_name;
  }
  return found;
}

}  // namespace

std::string FindIgnoringCase(const std::string& path) {
  fs::path result;
  for (const fs::path& component : fs::path(path)) {
    std::error_code error;
    if (fs::exists(result / component, error)) {
      result /= component;
      continue;
    }
    const std::string found = UniqueEntry(result.native(), component.native());
    if (found.empty()) return {};
    result /= found;
  }
  return result.native();
}

}  // namespace qelvrml
