#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <filesystem>

#include "Mutation.h"

/// The file that a worker writes each scene to, in its folder.
inline constexpr const char* SceneName = "soak-scene.wrl";

/// The largest value of a measure, and the number of the scene that gave it.
struct Worst {
  double Value = 0.0;
  std::uint64_t Scene = 0;
};

/// What a load may take; one above it is a finding.
struct Bounds {
  double Seconds = 0.0;  ///< of processor time
  double Megabytes = 0.0;
};

/// What a worker has found out. It stands in memory that is shared with the process that watches, and so outlives it.
struct Progress {
  static constexpr int MostNoted = 16;

  std::atomic<std::uint64_t> Current;  ///< number of the scene at hand
  std::uint64_t Scenes;
  Worst Time;
  Worst Memory;
  int FaultCount;                               ///< scenes above the bounds, and those with an unsound model
  std::array<std::uint64_t, MostNoted> Faults;  ///< the first of them
};

/// Loads the scenes `first`, `first` + `step` and so on, until `end` or until the process has run for `seconds` by the
/// clock. A load that takes ten times the bound ends the process.
void LoadScenes(const Mutation& mutation, const Bounds& bounds, const std::filesystem::path& folder,
                std::uint64_t first, std::uint64_t step, std::uint64_t end, double seconds, Progress& progress);
