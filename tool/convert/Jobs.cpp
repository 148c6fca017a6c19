#include "convert/Jobs.h"

#include <filesystem>
#include <set>

#include "CommandLine.h"
#include "Paths.h"
#include "text/Text.h"

namespace {

namespace fs = std::filesystem;

class JobList {
public:
  JobList(fs::path folder, std::string ending) : Folder(std::move(folder)), Ending(std::move(ending)) {}

  void Add(const std::string& path) {
    for (const FoundPath& found : FindFiles(path)) {
      ConversionJob job = {found.Path, "", found.Problem, found.Status};
      if (job.Problem.empty()) FindPlace(path, job);
      Jobs.push_back(std::move(job));
    }
  }

  std::vector<ConversionJob> Jobs;

private:
  void FindPlace(const std::string& path, ConversionJob& job) {
    const fs::path scene = job.Scene;
    const fs::path within = job.Scene == path ? fs::path() : scene.lexically_relative(path).parent_path();
    const std::string name = scene.filename().string();
    for (const std::string& stem : {SceneStem(name), name}) {
      job.File = (Folder / within / (stem + "." + Ending)).string();
      if (Taken.insert(job.File).second) return;
    }
    job.Problem = "another scene is written to " + Printable(job.File) + " already";
    job.Status = StatusWrongArguments;
  }

  fs::path Folder;
  std::string Ending;
  std::set<std::string> Taken;
};

}  // namespace

std::vector<ConversionJob> ListJobs(const std::vector<std::string>& paths, const std::string& folder,
                                    const std::string& ending) {
  JobList list(folder, ending);
  for (const std::string& path : paths) list.Add(path);
  return std::move(list.Jobs);
}
