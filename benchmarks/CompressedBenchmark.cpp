// A packed file against the plain one.

#include <zlib.h>

#include <cmath>

#include "Scene.h"
#include "support/Gzip.h"

namespace {

// Points of a curved surface, which pack about as well as those of real models.
std::string Surface(int count) {
  std::string text = "#VRML V1.0 ascii\nSeparator { Coordinate3 { point [\n";
  for (int i = 0; i < count; ++i) {
    const double u = i % 1000 * 0.01;
    const int row = i / 1000;
    const double v = row * 0.01;
    text += std::to_string(std::cos(u) * (3 + std::cos(v))) + " " + std::to_string(std::sin(u) * (3 + std::cos(v))) +
            " " + std::to_string(std::sin(v)) + ",\n";
  }
  text += "] } IndexedFaceSet { coordIndex [\n";
  for (int i = 0; i + 1001 < count; ++i) {
    text += std::to_string(i) + ", " + std::to_string(i + 1) + ", " + std::to_string(i + 1001) + ", -1,\n";
  }
  return text + "] } }\n";
}

// What unpacking costs by itself: no load of the packed file can take less than this and the plain one together.
void UnpackingAlone(benchmark::State& state) {
  const std::string text = Surface(static_cast<int>(state.range(0)));
  std::string packed = Gzip(text);
  std::string chunk(1'024'000, '\0');
  for (auto _ : state) {
    z_stream stream{};
    inflateInit2(&stream, 15 + 16);
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    int result = Z_OK;
    while (result == Z_OK) {
      stream.next_out = reinterpret_cast<Bytef*>(chunk.data());
      stream.avail_out = static_cast<uInt>(chunk.size());
      result = inflate(&stream, Z_NO_FLUSH);
    }
    inflateEnd(&stream);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(UnpackingAlone)->Arg(300'000)->Unit(benchmark::kMillisecond);

void PlainFile(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  TimeLoad(state, SceneFile("plain.wrl", Surface(count)), count);
}
BENCHMARK(PlainFile)->Arg(300'000)->Unit(benchmark::kMillisecond);

void PackedFile(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  TimeLoad(state, SceneFile("packed.wrl.gz", Gzip(Surface(count))), count);
}
BENCHMARK(PackedFile)->Arg(300'000)->Unit(benchmark::kMillisecond);

}  // namespace
