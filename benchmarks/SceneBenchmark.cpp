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

}  // namespace
