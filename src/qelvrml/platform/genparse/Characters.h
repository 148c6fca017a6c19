#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "qelvrml/foundation/AsciiCase.h"

namespace qelvrml {

/// What a byte of the input is to the tokenizer.
enum class CharacterClass : unsigned char {
  Word,
  Space,      ///< every byte up to 0x20, and the comma
  Delimiter,  ///< { } [ ] ( )
  Quote,
  Comment,  ///< #
};

// In captured text a quoted string has no quotes. So that it stays one token, the characters in it that would end a
// word are held as shift codes: single bytes below 0x20 that a file never delivers as text.
constexpr std::string_view ShiftedCharacters = " \t\n\r,\"#{}[]()";
constexpr unsigned char FirstShiftCode = 0x0E;
constexpr unsigned char LastShiftCode = FirstShiftCode + ShiftedCharacters.size() - 1;
static_assert(LastShiftCode < 0x20);

constexpr bool IsShiftCode(unsigned char byte) { return byte >= FirstShiftCode && byte <= LastShiftCode; }
constexpr char FromShiftCode(unsigned char code) { return ShiftedCharacters[code - FirstShiftCode]; }

/// The shift code of a character that would end a word; control characters without a code of their own take that of the
/// blank. Any other byte stays as it is.
constexpr char ToShiftCode(char character) {
  const std::size_t place = ShiftedCharacters.find(character);
  if (place != std::string_view::npos) return static_cast<char>(FirstShiftCode + place);
  return static_cast<unsigned char>(character) < 0x20 ? static_cast<char>(FirstShiftCode) : character;
}

using CharacterTable = std::array<CharacterClass, 256>;

constexpr CharacterTable MakeCharacterTable(bool withShiftCodes) {
  CharacterTable table{};
  for (unsigned char c = 0; c <= 0x20; ++c) {
    if (!withShiftCodes || !IsShiftCode(c)) table[c] = CharacterClass::Space;
  }
  table[','] = CharacterClass::Space;
  for (const char c : std::string_view("{}[]()")) table[static_cast<unsigned char>(c)] = CharacterClass::Delimiter;
  table['"'] = CharacterClass::Quote;
  table['#'] = CharacterClass::Comment;
  return table;
}

inline constexpr CharacterTable FileCharacters = MakeCharacterTable(false);
inline constexpr CharacterTable BufferCharacters = MakeCharacterTable(true);

}  // namespace qelvrml
