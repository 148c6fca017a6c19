#include "qelvrml/foundation/TextConversion.h"

#include <zlib.h>

#include <algorithm>
#include <array>

namespace qelvrml {
namespace {

constexpr char16_t ByteUnit = 0xDC00;  // a lone low surrogate from 0xDC80 to 0xDCFF stands for the byte below it
constexpr char32_t LargestCodePoint = 0x10FFFF;

constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
constexpr bool StandsForByte(char32_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; }

struct DecodedPoint {
  char32_t Point;
  std::size_t Length;  // 0: no valid sequence begins here
};

// Decodes one UTF-8 sequence; overlong forms, surrogates and values above U+10FFFF are not valid.
DecodedPoint DecodePoint(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  std::size_t length = 0;
  char32_t point = 0;
  char32_t smallest = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2, point = lead & 0x1FU, smallest = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3, point = lead & 0x0FU, smallest = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4, point = lead & 0x07U, smallest = 0x10000;
  }
  if (text.size() < length) return {0, 0};
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80U) return {0, 0};
    point = (point << 6U) | (byte & 0x3FU);
  }
  const bool surrogate = IsHighSurrogate(point) || IsLowSurrogate(point);
  if (point < smallest || point > LargestCodePoint || surrogate) return {0, 0};
  return {point, length};
}

void AppendPoint(std::string& text, char32_t point) {
  const auto tail = [point](unsigned shift) { return static_cast<char>(0x80U | ((point >> shift) & 0x3FU)); };
  if (point < 0x80) {
    text += static_cast<char>(point);
  } else if (point < 0x800) {
    text += static_cast<char>(0xC0U | (point >> 6U));
    text += tail(0);
  } else if (point < 0x10000) {
    text += static_cast<char>(0xE0U | (point >> 12U));
    text += tail(6);
    text += tail(0);
  } else {
    text += static_cast<char>(0xF0U | (point >> 18U));
    text += tail(12);
    text += tail(6);
    text += tail(0);
  }
}

template <class Text>
void AppendUnits(Text& wide, char32_t point) {
  if (point < 0x10000) {
    wide += static_cast<char16_t>(point);
    return;
  }
  const char32_t offset = point - 0x10000;
  wide += static_cast<char16_t>(0xD800U + (offset >> 10U));
  wide += static_cast<char16_t>(0xDC00U + (offset & 0x3FFU));
}

std::uint32_t HashBytes(const unsigned char* bytes, std::size_t count, std::uint32_t seed) {
  return static_cast<std::uint32_t>(crc32_z(seed, bytes, count));
}

}  // namespace

std::u16string Widen(std::string_view narrow) {
  std::u16string wide;
  wide.reserve(narrow.size());
  while (!narrow.empty()) {
    const auto byte = static_cast<unsigned char>(narrow.front());
    if (byte < 0x80) {
      wide += static_cast<char16_t>(byte);
      narrow.remove_prefix(1);
      continue;
    }
    const DecodedPoint decoded = DecodePoint(narrow);
    if (decoded.Length == 0) {
      wide += static_cast<char16_t>(ByteUnit + byte);
      narrow.remove_prefix(1);
    } else {
      AppendUnits(wide, decoded.Point);
      narrow.remove_prefix(decoded.Length);
    }
  }
  return wide;
}

std::optional<std::string> Narrow(std::u16string_view wide) {
  std::string narrow;
  narrow.reserve(wide.size());
  for (std::size_t i = 0; i < wide.size(); ++i) {
    const char32_t unit = wide[i];
    if (IsHighSurrogate(unit) && i + 1 < wide.size() && IsLowSurrogate(wide[i + 1])) {
      AppendPoint(narrow, 0x10000 + ((unit - 0xD800) << 10U) + (wide[i + 1] - 0xDC00U));
      ++i;
    } else if (StandsForByte(unit)) {
      narrow += static_cast<char>(unit - ByteUnit);
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      return std::nullopt;
    } else {
      AppendPoint(narrow, unit);
    }
  }
  return narrow;
}

std::uint32_t Hash(std::u16string_view wide) {
  std::array<unsigned char, 256> bytes;
  std::uint32_t hash = 0;
  while (!wide.empty()) {
    const std::size_t count = std::min(wide.size(), bytes.size() / 2);
    for (std::size_t i = 0; i < count; ++i) {
      bytes[2 * i] = static_cast<unsigned char>(wide[i] & 0xFFU);
      bytes[2 * i + 1] = static_cast<unsigned char>(wide[i] >> 8U);
    }
    hash = HashBytes(bytes.data(), 2 * count, hash);
    wide.remove_prefix(count);
  }
  return hash;
}

std::uint32_t HashNarrow(std::string_view narrow) {
  constexpr std::size_t ShortLength = 128;
  const auto sevenBit = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (narrow.size() > ShortLength || !std::all_of(narrow.begin(), narrow.end(), sevenBit)) return Hash(Widen(narrow));

  std::array<unsigned char, 2 * ShortLength> bytes;
  for (std::size_t i = 0; i < narrow.size(); ++i) {
    bytes[2 * i] = static_cast<unsigned char>(narrow[i]);
    bytes[2 * i + 1] = 0;
  }
  return HashBytes(bytes.data(), 2 * narrow.size(), 0);
}

std::wstring ToSystemWide(std::u16string_view wide) {
  std::wstring text;
  text.reserve(wide.size());
  for (std::size_t i = 0; i < wide.size(); ++i) {
    const char32_t unit = wide[i];
    if (sizeof(wchar_t) > 2 && IsHighSurrogate(unit) && i + 1 < wide.size() && IsLowSurrogate(wide[i + 1])) {
      text += static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10U) + (wide[i + 1] - 0xDC00U));
      ++i;
    } else {
      text += static_cast<wchar_t>(unit);
    }
  }
  return text;
}

std::u16string FromSystemWide(std::wstring_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  for (const wchar_t c : text) AppendUnits(wide, static_cast<char32_t>(c));
  return wide;
}

}  // namespace qelvrml
