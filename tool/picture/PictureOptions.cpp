#include "picture/PictureOptions.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace {

constexpr int LeastSide = 16;
constexpr int LargestSide = 8192;

struct NamedDirection {
  std::string_view Name;
  std::array<double, 3> From;
};

constexpr std::array Directions = {
    NamedDirection{"front", {0.0, 0.0, 1.0}},        NamedDirection{"back", {0.0, 0.0, -1.0}},
    NamedDirection{"left", {-1.0, 0.0, 0.0}},        NamedDirection{"right", {1.0, 0.0, 0.0}},
    NamedDirection{"top", {0.0, 1.0, 0.0}},          NamedDirection{"bottom", {0.0, -1.0, 0.0}},
    NamedDirection{"corner", PictureOptions{}.From},
};

struct NamedColour {
  std::string_view Name;
  std::array<float, 4> Colour;
};

constexpr std::array Backgrounds = {
    NamedColour{"white", {1.0F, 1.0F, 1.0F, 1.0F}},
    NamedColour{"black", {0.0F, 0.0F, 0.0F, 1.0F}},
    NamedColour{"transparent", {0.0F, 0.0F, 0.0F, 0.0F}},
};

// All of the word as a number; the base is for whole numbers.
template <class Number, class... Base>
std::optional<Number> Read(std::string_view word, Base... base) {
  Number number{};
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number, base...);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

std::optional<int> ReadSide(std::string_view word) {
  const std::optional<int> side = Read<int>(word, 10);
  return side && *side >= LeastSide && *side <= LargestSide ? side : std::nullopt;
}

}  // namespace

bool TakeSize(const std::string& word, PictureOptions& options) {
  const std::size_t cross = word.find('x');
  if (cross == std::string::npos) return false;
  const std::optional<int> width = ReadSide(std::string_view(word).substr(0, cross));
  const std::optional<int> height = ReadSide(std::string_view(word).substr(cross + 1));
  if (!width || !height) return false;
  options.Size = {*width, *height};
  return true;
}

bool TakeDirection(const std::string& word, PictureOptions& options) {
  for (const auto& [name, from] : Directions) {
    if (name != word) continue;
    options.From = from;
    return true;
  }
  std::array<double, 3> from{};
  std::string_view rest = word;
  for (std::size_t i = 0; i < from.size(); ++i) {
    const std::size_t comma = rest.find(',');
    if ((comma == std::string_view::npos) != (i == 2)) return false;
    const std::optional<double> component = Read<double>(rest.substr(0, comma));
    if (!component) return false;
    from[i] = *component;
    rest.remove_prefix(i < 2 ? comma + 1 : 0);
  }
  const double length = std::hypot(from[0], from[1], from[2]);
  if (!std::isfinite(length) || length == 0.0) return false;
  options.From = from;
  return true;
}

bool TakeBackground(const std::string& word, PictureOptions& options) {
  for (const auto& [name, colour] : Backgrounds) {
    if (name != word) continue;
    options.Background = colour;
    return true;
  }
  if (word.size() != 7 || word[0] != '#') return false;
  const std::optional<unsigned> number = Read<unsigned>(std::string_view(word).substr(1), 16);
  if (!number) return false;
  const auto share = [number](unsigned shift) { return static_cast<float>((*number >> shift) & 0xFFU) / 255.0F; };
  options.Background = {share(16), share(8), share(0), 1.0F};
  return true;
}
