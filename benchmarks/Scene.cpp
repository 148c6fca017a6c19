#include "Scene.h"

#include <filesystem>
#include <fstream>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/CKelWorld.h"

SceneFile::SceneFile(const std::string& name, const std::string& text)
    : FilePath((std::filesystem::temp_directory_path() / ("qelvrml-benchmark-" + name)).string()), Bytes(text.size()) {
  std::ofstream(FilePath, std::ios::binary) << text;
}

SceneFile::~SceneFile() {
  std::error_code error;
  std::filesystem::remove(FilePath, error);
}

void TimeLoad(benchmark::State& state, const SceneFile& scene, std::int64_t count) {
  for (auto _ : state) {
    CKelWorld world;
    CVRMLParser parser;
    if (parser.Parse(&world, scene.Path().c_str()) != VRMLLoadOK) state.SkipWithError("the scene didn't load");
    benchmark::DoNotOptimize(world.GetNumObjects());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(scene.Size()));
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * count);
}
