// Prototypes: expansion in proportion to the instances and their text, look-up at any number of prototypes, and
// snapshots against a copy of the text they refer to.

#include "Scene.h"
#include "qelvrml/parser/CVRMLIOManager.h"
#include "qelvrml/platform/genparse/CGenericIOState.h"

namespace {

void Instances(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  std::string text =
      "#VRML V2.0 utf8\nPROTO Post [ field SFFloat h 2 field SFVec3f at 0 0 0 ] {\n"
      "  Transform { translation IS at children Shape { geometry Box { size 1 IS h } } } }\n";
  for (int i = 0; i < count; ++i) text += "Post { h 3 at " + std::to_string(i) + " 0 0 }\n";
  TimeLoad(state, SceneFile("instances.wrl", text), count);
}
BENCHMARK(Instances)->Arg(10'000)->Arg(30'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

// 100,000 words that name no prototype, among some prototypes.
void WordsAmongPrototypes(benchmark::State& state) {
  constexpr int WordCount = 100'000;
  std::string text = "#VRML V2.0 utf8\n";
  for (int i = 0; i < state.range(0); ++i) text += "PROTO P" + std::to_string(i) + " [] { Group { } }\n";
  for (int i = 0; i < WordCount; ++i) text += "word" + std::to_string(i) + "\n";
  TimeLoad(state, SceneFile("words.wrl", text), WordCount);
}
BENCHMARK(WordsAmongPrototypes)->Arg(10)->Arg(10'000)->Unit(benchmark::kMillisecond);

void Snapshots(benchmark::State& state) {
  const std::string text(static_cast<std::size_t>(state.range(0)), 'x');
  CVRMLIOManager manager;
  manager.StartBufferReading(text.c_str(), static_cast<int>(text.size()));
  for (auto _ : state) {
    CGenericIOState snapshot;
    manager.SaveIOState(snapshot);
    manager.RestoreIOState(snapshot);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Snapshots)->Arg(1'000)->Arg(100'000'000);

void CopyOfTheText(benchmark::State& state) {
  const std::string text(static_cast<std::size_t>(state.range(0)), 'x');
  for (auto _ : state) benchmark::DoNotOptimize(std::string(text).data());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(CopyOfTheText)->Arg(1'000)->Arg(100'000'000);

}  // namespace
