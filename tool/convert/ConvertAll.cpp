#include "convert/ConvertAll.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <new>
#include <thread>

#include "CommandLine.h"
#include "Failures.h"
#include "Load.h"
#include "Progress.h"
#include "convert/Export.h"
#include "text/Figures.h"

namespace {

void Fail(ConversionJob& job, const std::string& problem, int status) {
  job.Problem = problem;
  job.Status = status;
}

std::string Told(const Exported& exported) {
  std::string text = Counted(exported.Objects, "object") + ", " + Counted(exported.Triangles, "triangle") + "; " +
                     Bytes(exported.Bytes);
  if (exported.LeftOut > 0) text += "; " + Counted(exported.LeftOut, "object") + " of lines or dots left out";
  return text;
}

std::string Write(ConversionJob& job, const LoadedFile& file, const Format& format, const Resolution& resolution,
                  Existing existing) {
  const Scene scene = MakeScene(file, resolution);
  if (scene.IsEmpty()) {
    Fail(job, WhyNothingToShow(file), file.Problem.empty() ? StatusNothingLoaded : ExitStatus(file.Result));
    return "";
  }
  const Exported exported = ExportScene(scene, format, job.File, existing);
  if (!exported.Problem.empty()) {
    Fail(job, exported.Problem, exported.Objects == 0 ? StatusNothingLoaded : StatusNotWritten);
    return "";
  }
  return Told(exported);
}

void MakeFolderOf(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  std::error_code failed;  // told when the file can't be written
  if (!folder.empty()) std::filesystem::create_directories(folder, failed);
}

/// Hands jobs out to threads and tells what becomes of them.
class Workers {
public:
  Workers(std::vector<ConversionJob>& jobs, const Format& format, const Resolution& resolution, Existing existing)
      : Jobs(jobs), Target(format), Fineness(resolution), Existed(existing), Bar(jobs.size()) {}

  void Run() {
    const std::size_t count = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, Jobs.size());
    std::vector<std::jthread> threads;
    for (std::size_t i = 1; i < count; ++i) threads.emplace_back([this] { Work(); });
    Work();
  }

private:
  void Work() {
    for (std::size_t i = Next++; i < Jobs.size(); i = Next++) {
      ConversionJob& job = Jobs[i];
      if (job.Problem.empty()) {
        MakeFolderOf(job.File);
        TryJob(job, Target, Fineness, Existed);
      }
      const std::lock_guard lock(Telling);
      if (!job.Problem.empty()) {
        Bar.Hide();
        ReportProblem(job.Scene, job.Problem);
      }
      Bar.CountOne();
    }
  }

  std::vector<ConversionJob>& Jobs;
  const Format& Target;
  const Resolution Fineness;
  const Existing Existed;
  std::atomic<std::size_t> Next = 0;
  std::mutex Telling;
  CountBar Bar;
};

}  // namespace

std::string TryJob(ConversionJob& job, const Format& format, const Resolution& resolution, Existing existing) {
  try {
    return Write(job, LoadFileSilently(job.Scene), format, resolution, existing);
  } catch (const std::bad_alloc&) {
    Fail(job, "out of memory", StatusOutOfMemory);
  } catch (const std::exception& error) {
    Fail(job, error.what(), StatusInternalError);
  }
  return "";
}

int ConvertAll(std::vector<ConversionJob> jobs, const Format& format, const Resolution& resolution, Existing existing) {
  const auto start = std::chrono::steady_clock::now();
  Workers(jobs, format, resolution, existing).Run();
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

  const auto failed = [](const ConversionJob& job) { return !job.Problem.empty(); };
  const auto failures = static_cast<std::size_t>(std::count_if(jobs.begin(), jobs.end(), failed));
  std::cout << "total: " << Counted(jobs.size(), "file") << ", " << Grouped(jobs.size() - failures) << " converted, "
            << Grouped(failures) << " failed; " << Duration(seconds) << '\n';
  FlushOutput();
  const auto first = std::find_if(jobs.begin(), jobs.end(), failed);
  return first == jobs.end() ? 0 : first->Status;
}
