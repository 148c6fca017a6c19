#include "text/Figures.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

std::string Written(double value, std::chars_format format, int precision) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format, precision).ptr;
  return {text.data(), end};
}

// Puts commas into the digits in front of the point.
std::string WithCommas(std::string number) {
  const std::size_t first = number.starts_with('-') ? 1 : 0;
  for (std::size_t at = std::min(number.find('.'), number.size()); at > first + 3; at -= 3) number.insert(at - 3, ",");
  return number;
}

}  // namespace

std::string Grouped(std::uint64_t count) { return WithCommas(std::to_string(count)); }

std::string Counted(std::uint64_t count, const std::string& noun) {
  return Grouped(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string Measure(double value, int digits) {
  if (value == 0.0) return "0";
  if (!std::isfinite(value) || std::abs(value) < 1e-4 || std::abs(value) >= 1e10) {
    return Written(value, std::chars_format::general, digits);
  }
  const int magnitude = static_cast<int>(std::floor(std::log10(std::abs(value))));
  std::string number = Written(value, std::chars_format::fixed, std::max(digits - 1 - magnitude, 0));
  if (number.find('.') != std::string::npos) {
    number.erase(number.find_last_not_of('0') + 1);
    if (number.ends_with('.')) number.pop_back();
  }
  return WithCommas(number);
}

std::string Duration(double seconds) {
  const bool milli = seconds < 0.9995;
  const double value = milli ? seconds * 1e3 : seconds;
  return WithCommas(Written(value, std::chars_format::fixed, value < 99.95 ? 1 : 0)) + (milli ? " ms" : " s");
}

std::string Bytes(std::uint64_t count) {
  if (count < 1000) return Counted(count, "byte");
  const bool kilo = count < 999'500;
  return Measure(static_cast<double>(count) / (kilo ? 1e3 : 1e6), 3) + (kilo ? " kB" : " MB");
}
