#pragma once

#include <benchmark/benchmark.h>

#include <string>

/// A scene in a file of its own, which goes with this object.
class SceneFile {
public:
  SceneFile(const std::string& name, const std::string& text);
  SceneFile(const SceneFile&) = delete;
  SceneFile& operator=(const SceneFile&) = delete;
  ~SceneFile();
  const std::string& Path() const { return FilePath; }
  std::size_t Size() const { return Bytes; }

private:
  std::string FilePath;
  std::size_t Bytes;
};

/// Times the load of a scene; reports its bytes and, as items, `count` of whatever it holds. Stops at a failed load.
void TimeLoad(benchmark::State& state, const SceneFile& scene, std::int64_t count);
