// Scenes whose time of loading has to grow in proportion to their size.

#include "Scene.h"

namespace {

void DefsAndUses(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  std::string text = "#VRML V1.0 ascii\n";
  for (int i = 0; i < count; ++i)
    text += "DEF n" + std::to_string(i) + " Cube { width " + std::to_string(i % 7 + 1) + " }\n";
  for (int i = 0; i < count; ++i) text += "USE n" + std::to_string(i) + "\n";
  TimeLoad(state, SceneFile("defs.wrl", text), count);
}
BENCHMARK(DefsAndUses)->Arg(10'000)->Arg(30'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void SeparatorsBehindCoordinates(benchmark::State& state) {
  constexpr int PointCount = 1'000'000;
  const auto count = static_cast<int>(state.range(0));
  std::string text = "#VRML V1.0 ascii\nCoordinate3 { point [\n";
  for (int i = 0; i < PointCount; ++i) text += std::to_string(i % 1000) + " " + std::to_string(i / 1000) + " 0.25,\n";
  text += "] }\n";
  for (int i = 0; i < count; ++i) {
    const std::string first = std::to_string(i);
    text += "Separator { Translation { translation " + first + " 0 0 } IndexedFaceSet { coordIndex [ " + first;
    text += " " + std::to_string(i + 1) + " " + std::to_string(i + 1001) + " -1 ] } }\n";
  }
  TimeLoad(state, SceneFile("separators.wrl", text), count);
}
BENCHMARK(SeparatorsBehindCoordinates)->Arg(10'000)->Arg(30'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
