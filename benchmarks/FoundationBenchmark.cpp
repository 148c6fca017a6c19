// The tokenizer against a plain walk over the bytes.

#include "Scene.h"
#include "qelvrml/parser/CVRMLIOManager.h"

namespace {

std::string Points(int count) {
  std::string text = "#VRML V1.0 ascii\nCoordinate3 { point [\n";
  for (int i = 0; i < count; ++i) {
    text += std::to_string(i % 997) + ".25 -" + std::to_string(i % 89) + ".5 " + std::to_string(i * 0.37) + ",\n";
  }
  return text + "] }\n";
}

void WalkOverBytes(benchmark::State& state) {
  const std::string text = Points(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::size_t words = 0;
    for (const char c : text) words += c == ' ' || c == '\n' ? 1 : 0;
    benchmark::DoNotOptimize(words);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(WalkOverBytes)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void Tokens(benchmark::State& state) {
  const SceneFile scene("tokens.wrl", Points(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    CVRMLIOManager manager;
    manager.SetFilename(scene.Path().c_str());
    manager.OpenFile();
    std::size_t tokens = 0;
    while (manager.Tokenize()) ++tokens;
    benchmark::DoNotOptimize(tokens);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(scene.Size()));
}
BENCHMARK(Tokens)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void Coordinates(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  TimeLoad(state, SceneFile("points.wrl", Points(count)), count);
}
BENCHMARK(Coordinates)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
