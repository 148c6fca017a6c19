#include "platform/fileint/PathLookup.h"

#include <strings.h>

#include <filesystem>
#include <system_error>

namespace qelvrml {
namespace {

namespace fs = std::filesystem;

// The one entry of `folder` that equals `name` without regard to case; empty when there is none, or more than one.
fs::path UniqueEntry(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  fs::path found;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    fs::path candidate = entry->path().filename();
    if (strcasecmp(candidate.c_str(), name.c_str()) != 0) continue;
    if (!found.empty()) return {};
    found = std::move(candidate);
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
    const fs::path found = UniqueEntry(result, component);
    if (found.empty()) return {};
    result /= found;
  }
  return result.string();
}

}  // namespace qelvrml
