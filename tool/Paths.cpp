#include "Paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "CommandLine.h"
#include "text/Text.h"

namespace {

namespace fs = std::filesystem;

bool IsSceneName(const std::string& name) {
  return std::any_of(SceneEndings.begin(), SceneEndings.end(),
                     [&name](const char* ending) { return HasEnding(name, std::string(".") + ending); });
}

// Adds the files of one folder to `files`, and its folders to `folders`.
std::error_code ReadFolder(const fs::path& folder, std::vector<fs::path>& files, std::vector<fs::path>& folders) {
  std::error_code error;
  for (auto entry = fs::directory_iterator(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    std::error_code unknown;
    if (fs::is_directory(entry->symlink_status(unknown))) {
      folders.push_back(entry->path());
    } else if (IsSceneName(entry->path().filename().string()) && !entry->is_directory(unknown)) {
      files.push_back(entry->path());
    }
  }
  return error;
}

}  // namespace

std::vector<FoundPath> FindFiles(const std::string& path) {
  std::error_code unknown;
  if (!fs::is_directory(path, unknown)) return {{path, "", 0}};
  std::vector<FoundPath> found;
  std::vector<fs::path> files;
  std::vector<fs::path> folders = {path};
  while (!folders.empty()) {
    const fs::path folder = folders.back();
    folders.pop_back();
    const std::error_code error = ReadFolder(folder, files, folders);
    if (error) found.push_back({folder.string(), "can't be searched: " + error.message(), StatusNotOpened});
  }
  if (files.empty() && found.empty()) return {{path, "holds no VRML files", StatusNothingLoaded}};
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) found.push_back({file.string(), "", 0});
  return found;
}

std::string SceneStem(const std::string& path) {
  const fs::path name = fs::path(path).filename();
  std::size_t longest = name.extension().string().size();
  for (const char* ending : SceneEndings) {
    const std::string whole = std::string(".") + ending;
    if (HasEnding(name.string(), whole)) longest = std::max(longest, whole.size());
  }
  const std::string stem = name.string().substr(0, name.string().size() - longest);
  return stem.empty() ? name.string() : stem;
}
