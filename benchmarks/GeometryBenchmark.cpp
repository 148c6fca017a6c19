// Grids, sweeps and caps.

#include <cmath>
#include <numbers>

#include "Scene.h"

namespace {

void ElevationGrid(benchmark::State& state) {
  const auto side = static_cast<int>(state.range(0));
  std::string text = "#VRML V2.0 utf8\nElevationGrid { xDimension " + std::to_string(side) + " zDimension " +
                     std::to_string(side) + " xSpacing 1 zSpacing 1 height [\n";
  for (int i = 0; i < side * side; ++i) text += std::to_string(i % 9) + ".5 ";
  TimeLoad(state, SceneFile("grid.wrl", text + "] }"), std::int64_t{side} * side);
}
BENCHMARK(ElevationGrid)->Arg(2000)->Unit(benchmark::kMillisecond);

std::string Circle(double x, double z, double radius, int count, bool backwards = false) {
  std::string text;
  for (int i = 0; i <= count; ++i) {
    const double angle = 2.0 * std::numbers::pi * (i % count) / count * (backwards ? -1.0 : 1.0);
    text += std::to_string(x + radius * std::cos(angle)) + " " + std::to_string(z + radius * std::sin(angle)) + " ";
  }
  return text;
}

void Extrusion(benchmark::State& state) {
  const auto side = static_cast<int>(state.range(0));
  std::string text = "#VRML V2.0 utf8\nExtrusion { beginCap FALSE endCap FALSE crossSection [ " +
                     Circle(0, 0, 1, side - 1) + "] spine [\n";
  for (int i = 0; i < side; ++i) text += std::to_string(std::sin(i * 0.01) * 20.0) + " " + std::to_string(i) + " 0,\n";
  TimeLoad(state, SceneFile("sweep.wrl", text + "] }"), std::int64_t{side} * side);
}
BENCHMARK(Extrusion)->Arg(1000)->Unit(benchmark::kMillisecond);

// A plate with a grid of round holes of 80 points; the outline has a fifth of all points.
void CapWithHoles(benchmark::State& state) {
  constexpr int HolePoints = 80;
  const auto holes = static_cast<int>(state.range(0));
  const int side = static_cast<int>(std::ceil(std::sqrt(holes)));
  std::string section;
  const int outline = holes * HolePoints / 4;
  for (int i = 0; i <= outline; ++i) {
    const double turn = 4.0 * (i % outline) / outline;
    const int edge = static_cast<int>(turn);
    const double along = (turn - edge) * (side + 1.0);
    const double x[] = {along, side + 1.0, side + 1.0 - along, 0.0};
    const double z[] = {0.0, along, side + 1.0, side + 1.0 - along};
    section += std::to_string(x[edge]) + " " + std::to_string(z[edge]) + " ";
  }
  for (int i = 0; i < holes; ++i) {
    const int row = i / side;
    section += Circle(1.0 + i % side, 1.0 + row, 0.3, HolePoints);
  }
  const std::string text =
      "#VRML V2.0 utf8\nExtrusion { endCap FALSE spine [ 0 0 0, 0 1 0 ] crossSection [ " + section + "] }";
  TimeLoad(state, SceneFile("cap.wrl", text), std::int64_t{holes} * HolePoints + outline);
}
BENCHMARK(CapWithHoles)->Arg(100)->Arg(300)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
