#include "text/Text.h"

#include <algorithm>

namespace {

constexpr char16_t Replacement = 0xFFFD;

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

}  // namespace

std::string ToUtf8(const CBasicString& text) {
  CBasicString string(text.GetWideText());
  for (int i = 0; i < string.GetLength(); ++i) {
    const char16_t unit = string.GetAt(i);
    const bool high = unit >= 0xD800 && unit < 0xDC00;
    const char16_t next = string.GetAt(i + 1);
    if (high && next >= 0xDC00 && next < 0xE000) {
      ++i;
    } else if (unit >= 0xD800 && unit < 0xE000) {
      string.SetAt(i, Replacement);
    }
  }
  return string.GetNarrowText();
}

std::string Printable(const CBasicString& text) {
  CBasicString string(text.GetWideText());
  for (int i = 0; i < string.GetLength(); ++i) {
    const char16_t unit = string.GetAt(i);
    if (unit < 0x20 || (unit >= 0x7F && unit < 0xA0)) string.SetAt(i, Replacement);
  }
  return ToUtf8(string);
}

std::string Printable(const std::string& text) { return Printable(CBasicString(text.c_str())); }

std::size_t Columns(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::string EndOfPath(const std::string& path, std::size_t width) {
  const std::string dots = "...";
  if (Columns(path) <= width) return path;
  std::size_t start = path.size();
  for (std::size_t left = width - std::min(width, dots.size()); left > 0 && start > 0;) {
    if (StartsCharacter(path[--start])) --left;
  }
  const std::size_t slash = path.find('/', start);
  return dots + path.substr(slash != std::string::npos ? slash : start);
}

bool HasEnding(const std::string& name, const std::string& ending) {
  const auto same = [](char lower, char c) { return c == lower || (c >= 'A' && c <= 'Z' && c - 'A' + 'a' == lower); };
  return name.size() >= ending.size() && std::equal(ending.rbegin(), ending.rend(), name.rbegin(), same);
}
