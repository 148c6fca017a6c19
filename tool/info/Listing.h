#pragma once

#include <cstdint>

#include "Load.h"
#include "info/Census.h"

/// What several files hold together.
struct Total {
  std::uint64_t Files = 0;
  std::uint64_t Loaded = 0;
  std::uint64_t Objects = 0;
  std::uint64_t Triangles = 0;
  double Seconds = 0.0;

  void Add(const LoadedFile& file, const Census& census) {
    ++Files;
    if (file.Problem.empty()) ++Loaded;
    Objects += census.Objects;
    Triangles += census.Triangles;
    Seconds += file.Seconds;
  }
};

/// Tells about several files on standard output, each as soon as it was loaded.
class Listing {
public:
  virtual ~Listing() = default;
  virtual void Add(const LoadedFile& file, const Census& census) = 0;
  virtual void End(const Total& total) = 0;
};
