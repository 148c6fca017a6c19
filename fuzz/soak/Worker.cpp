#include "Worker.h"

#include <fcntl.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <ctime>
#include <fstream>
#include <iostream>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/CKelWorld.h"
#include "support/CheckModel.h"

namespace {

constexpr double LargeLoad = 64.0;  // megabytes from which on released memory is given back before the next load

double ProcessorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// The most memory that the process has had since it was last reset, in megabytes.
class PeakMemory {
public:
  PeakMemory() : File(open("/proc/self/clear_refs", O_WRONLY | O_CLOEXEC)) {}
  PeakMemory(const PeakMemory&) = delete;
  PeakMemory& operator=(const PeakMemory&) = delete;
  ~PeakMemory() {
    if (File >= 0) close(File);
  }

  // Without the right to reset, it is the most of all loads so far.
  void Reset() const {
    if (File >= 0 && write(File, "5", 1) != 1) return;
  }
  static double Get() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
  }

private:
  int File;
};

void Watch(double seconds) {
  const auto whole = static_cast<time_t>(std::ceil(seconds));
  const itimerval timer{{0, 0}, {whole, 0}};
  setitimer(ITIMER_PROF, &timer, nullptr);  // its signal ends the process
}

void Note(Worst& worst, double value, std::uint64_t scene) {
  if (value > worst.Value) worst = {value, scene};
}

}  // namespace

void LoadScenes(const Mutation& mutation, const Bounds& bounds, const std::filesystem::path& folder,
                std::uint64_t first, std::uint64_t step, std::uint64_t end, double seconds, Progress& progress) {
  const auto start = std::chrono::steady_clock::now();
  const std::string path = (folder / SceneName).string();
  const PeakMemory peak;
  for (std::uint64_t number = first; number < end; number += step) {
    if (std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() > seconds) return;
    const std::string scene = mutation.Make(number);
    std::ofstream(path, std::ios::binary) << scene;
    progress.Current = number;
    Watch(bounds.Seconds * 10.0);
    peak.Reset();
    const double before = ProcessorSeconds();
    double used = 0.0;
    double memory = 0.0;
    std::string fault;
    {
      CKelWorld world;
      CVRMLParser parser;
      parser.Parse(&world, path.c_str());
      used = ProcessorSeconds() - before;
      memory = PeakMemory::Get();
      fault = FindFault(world);
    }
    Watch(0.0);
    ++progress.Scenes;
    Note(progress.Time, used, number);
    Note(progress.Memory, memory, number);
    if (!fault.empty()) std::cerr << "scene " << number << ": " << fault << '\n';
    if (!fault.empty() || used > bounds.Seconds || memory > bounds.Megabytes) {
      if (progress.FaultCount < Progress::MostNoted)
        progress.Faults[static_cast<std::size_t>(progress.FaultCount)] = number;
      ++progress.FaultCount;
    }
    if (memory > LargeLoad) malloc_trim(0);
  }
}
