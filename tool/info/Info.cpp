#include "info/Info.h"

#include <filesystem>
#include <memory>
#include <system_error>

#include "Failures.h"
#include "Load.h"
#include "Paths.h"
#include "info/Census.h"
#include "info/InfoJson.h"
#include "info/Report.h"
#include "info/Summary.h"

namespace {

int TellOne(const std::string& path, bool json) {
  const LoadedFile file = LoadFile(path);
  const Census census = CountModel(*file.World);
  if (json) {
    PrintInfoJson(file, census);
  } else if (file.Problem.empty() || !file.Notes.empty()) {
    PrintReport(file, census);
  }
  FlushOutput();
  if (!file.Problem.empty()) ReportProblem(path, file.Problem);
  return ExitStatus(file.Result);
}

// Gives the exit status for a path; its model is let go before the next one is loaded.
int TellNext(const FoundPath& found, Listing& listing, Total& total) {
  if (!found.Problem.empty()) {
    ReportProblem(found.Path, found.Problem);
    return found.Status;
  }
  const LoadedFile file = LoadFile(found.Path);
  const Census census = CountModel(*file.World);
  total.Add(file, census);
  listing.Add(file, census);
  FlushOutput();
  return ExitStatus(file.Result);
}

int TellSeveral(const std::vector<std::string>& paths, Listing& listing) {
  int status = 0;
  Total total;
  for (const std::string& path : paths) {
    for (const FoundPath& found : FindFiles(path)) {
      const int next = TellNext(found, listing, total);
      if (status == 0) status = next;
    }
  }
  listing.End(total);
  FlushOutput();
  return status;
}

std::unique_ptr<Listing> MakeListing(bool json) {
  if (json) return std::make_unique<JsonListing>();
  return std::make_unique<Summary>();
}

}  // namespace

int TellInfo(const std::vector<std::string>& paths, bool json) {
  std::error_code unknown;
  if (paths.size() == 1 && !std::filesystem::is_directory(paths.front(), unknown)) return TellOne(paths.front(), json);
  return TellSeveral(paths, *MakeListing(json));
}
