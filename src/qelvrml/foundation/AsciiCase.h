#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace qelvrml {

// The case of ASCII letters, whatever the locale; any other character is its own upper and lower form.

constexpr char ToUpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

template <class Character>
constexpr Character ToLowerAscii(Character c) {
  return c >= 'A' && c <= 'Z' ? static_cast<Character>(c - 'A' + 'a') : c;
}

template <class Character>
std::basic_string<Character> LowerAscii(std::basic_string_view<Character> text) {
  std::basic_string<Character> lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), ToLowerAscii<Character>);
  return lower;
}

}  // namespace qelvrml
