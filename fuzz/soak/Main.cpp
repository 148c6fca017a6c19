// Loads damaged scenes in worker processes and tells what the worst of them took.
//
//   qelvrml-soak --seconds N | --scenes N [--seed S] [--findings FOLDER] [--time SECONDS] [--memory MEGABYTES]
//   FOLDER...
//
// The scenes are those of the folders, as they are and damaged. A worker that ends in a load is replaced; that scene,
// those above the bounds and the worst ones are saved. Fails if there are findings.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <map>
#include <new>
#include <span>
#include <string_view>
#include <utility>

#include "Worker.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Workers = 2;
constexpr int MostCrashes = 20;                       // then it is enough
constexpr std::uintmax_t LargestScene = 256U << 10U;  // what is longer costs time and holds nothing new

#if defined(__SANITIZE_ADDRESS__)
constexpr Bounds DefaultBounds = {20.0, 4096.0};
#else
constexpr Bounds DefaultBounds = {2.0, 2048.0};
#endif

struct Options {
  double Seconds = std::numeric_limits<double>::infinity();
  std::uint64_t Scenes = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t Seed = 1;
  fs::path Findings = "findings";
  Bounds Limits = DefaultBounds;
  std::vector<fs::path> Folders;
};

// False for an option that isn't known or lacks its value.
bool ReadOptions(std::span<char*> arguments, Options& options) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view name = arguments[i];
    if (!name.starts_with("--")) {
      options.Folders.emplace_back(name);
      continue;
    }
    if (++i == arguments.size()) return false;
    const char* value = arguments[i];
    if (name == "--seconds") {
      options.Seconds = std::atof(value);
    } else if (name == "--scenes") {
      options.Scenes = std::strtoull(value, nullptr, 10);
    } else if (name == "--seed") {
      options.Seed = std::strtoull(value, nullptr, 10);
    } else if (name == "--findings") {
      options.Findings = value;
    } else if (name == "--time") {
      options.Limits.Seconds = std::atof(value);
    } else if (name == "--memory") {
      options.Limits.Megabytes = std::atof(value);
    } else {
      return false;
    }
  }
  return true;
}

std::string Read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The scenes of the folders, in an order that is the same everywhere. All files are reached from the scratch folder,
// where scenes look for what they refer to.
std::vector<std::string> Gather(const std::vector<fs::path>& folders, const fs::path& scratch) {
  std::map<std::pair<std::size_t, fs::path>, fs::path> files;
  for (std::size_t i = 0; i < folders.size(); ++i) {
    for (auto entry = fs::recursive_directory_iterator(folders[i]); entry != fs::end(entry); ++entry) {
      // Those take as long as a load may, and their damaged copies as well.
      if (entry->path().filename() == "hostile") entry.disable_recursion_pending();
      if (entry->is_regular_file()) files.emplace(std::pair(i, fs::relative(entry->path(), folders[i])), entry->path());
    }
  }
  std::vector<std::string> scenes;
  for (const auto& [key, path] : files) {
    std::error_code taken;
    fs::create_symlink(fs::absolute(path), scratch / path.filename(), taken);
    const bool isScene = path.extension() == ".wrl" && fs::file_size(path) <= LargestScene;
    if (isScene && fs::file_size(path) > 0) scenes.push_back(Read(path));
  }
  return scenes;
}

/// A worker process after another that loads the same share of the scenes.
class Share {
public:
  Share(std::size_t index, const Options& options, const Mutation& mutation, const fs::path& scratch)
      : Index(index), Settings(options), Scenes(mutation), Folder(scratch) {
    void* memory = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    Done = new (memory) Progress();
  }
  Share(Share&&) = default;

  void Start(std::uint64_t first, double seconds) {
    std::cout.flush();
    Process = fork();
    if (Process != 0) return;
    LoadScenes(Scenes, Settings.Limits, Folder, first, Workers, Settings.Scenes, seconds, *Done);
    std::exit(0);  // here the sanitizer looks for leaks; the last scene then stands for all of the worker's
  }

  /// Called when the process has ended; true if another one goes on behind the scene that ended it.
  bool GoOn(int status, double secondsLeft) {
    Process = 0;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return false;
    std::cout << "scene " << Done->Current << " ended a worker with the status " << status << '\n';
    Crashes.push_back(Done->Current);
    if (secondsLeft <= 0.0 || Crashes.size() >= MostCrashes) return false;
    Start(Done->Current + Workers, secondsLeft);
    return true;
  }

  std::size_t Index;
  pid_t Process = 0;
  Progress* Done = nullptr;
  std::vector<std::uint64_t> Crashes;

private:
  const Options& Settings;
  const Mutation& Scenes;
  fs::path Folder;
};

double SecondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void RunAll(std::vector<Share>& shares, double seconds) {
  const auto start = std::chrono::steady_clock::now();
  std::size_t running = shares.size();
  for (Share& share : shares) share.Start(share.Index, seconds);
  while (running > 0) {
    int status = 0;
    const pid_t ended = wait(&status);
    if (ended < 0) return;
    const auto share =
        std::find_if(shares.begin(), shares.end(), [=](const Share& each) { return each.Process == ended; });
    if (share != shares.end() && !share->GoOn(status, seconds - SecondsSince(start))) --running;
  }
}

void Save(const Options& options, const Mutation& mutation, const std::string& kind, std::uint64_t scene) {
  fs::create_directories(options.Findings);
  const fs::path path =
      options.Findings / (kind + "-" + std::to_string(options.Seed) + "-" + std::to_string(scene) + ".wrl");
  std::ofstream(path, std::ios::binary) << mutation.Make(scene);
  std::cout << "  " << kind << ": " << path.string() << '\n';
}

bool Report(const std::vector<Share>& shares, const Options& options, const Mutation& mutation, double seconds) {
  std::uint64_t scenes = 0;
  std::size_t findings = 0;
  Worst time;
  Worst memory;
  for (const Share& share : shares) {
    scenes += share.Done->Scenes + share.Crashes.size();
    findings += share.Crashes.size() + static_cast<std::size_t>(share.Done->FaultCount);
    if (share.Done->Time.Value > time.Value) time = share.Done->Time;
    if (share.Done->Memory.Value > memory.Value) memory = share.Done->Memory;
  }
  std::cout << scenes << " scenes, " << static_cast<double>(scenes) / seconds << " a second, seed " << options.Seed
            << '\n'
            << "worst time " << time.Value << " s of processor time, worst memory " << memory.Value << " MB, "
            << findings << " findings\n";
  Save(options, mutation, "slowest", time.Scene);
  Save(options, mutation, "largest", memory.Scene);
  for (const Share& share : shares) {
    for (const std::uint64_t scene : share.Crashes) Save(options, mutation, "crash", scene);
    for (int i = 0; i < std::min(share.Done->FaultCount, Progress::MostNoted); ++i)
      Save(options, mutation, "fault", share.Done->Faults[static_cast<std::size_t>(i)]);
  }
  return findings == 0;
}

}  // namespace

int main(int count, char** arguments) {
  Options options;
  if (!ReadOptions({arguments + 1, static_cast<std::size_t>(count - 1)}, options)) {
    std::cerr << "an option that isn't known or lacks its value\n";
    return 64;
  }
  const fs::path memory = "/dev/shm";
  std::string pattern =
      ((fs::is_directory(memory) ? memory : fs::temp_directory_path()) / "qelvrml-soak-XXXXXX").string();
  if (!mkdtemp(pattern.data())) return 1;
  const fs::path scratch = pattern;
  std::vector<fs::path> folders;
  for (std::size_t i = 0; i < Workers; ++i) {
    folders.push_back(scratch / std::to_string(i));
    fs::create_directory(folders.back());
    std::ofstream(folders.back() / SceneName) << "";  // so that no link to a file of that name takes its place
  }
  std::vector<std::string> scenes;
  for (const fs::path& folder : folders) scenes = Gather(options.Folders, folder);
  if (scenes.empty()) {
    std::cerr << "no scenes\n";
    return 1;
  }
  const Mutation mutation(scenes, options.Seed);
  std::vector<Share> shares;
  for (std::size_t i = 0; i < Workers; ++i) shares.emplace_back(i, options, mutation, folders[i]);
  const auto start = std::chrono::steady_clock::now();
  RunAll(shares, options.Seconds);
  const bool sound = Report(shares, options, mutation, SecondsSince(start));
  std::error_code error;
  fs::remove_all(scratch, error);
  return sound ? 0 : 1;
}
