#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qelvrml {

/// UTF-16 form of `narrow`, which is read as UTF-8. A byte that isn't part of valid UTF-8 becomes the code unit
/// 0xDC00 + byte, so that any name of a file or a node survives the way there and back.
std::u16string Widen(std::string_view narrow);

/// UTF-8 form of `wide`, with the units that stand for single bytes turned back into those bytes. Nothing when `wide`
/// holds a lone surrogate of any other kind.
std::optional<std::string> Narrow(std::u16string_view wide);

/// CRC-32 of the code units, two bytes each, low byte first; 0 for an empty text.
std::uint32_t Hash(std::u16string_view wide);

/// Hash of Widen(narrow); costs no allocation for a short text of 7-bit characters.
std::uint32_t HashNarrow(std::string_view narrow);

/// Wide text of the C library and back, for the functions that take or give `wchar_t`.
std::wstring ToSystemWide(std::u16string_view wide);
std::u16string FromSystemWide(std::wstring_view text);

}  // namespace qelvrml
