#pragma once

#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/platform/genparse/PlainNumber.h"

namespace qelvrml {

/// What numbers of a list are parted by: white space in files and in buffers, but for the NUL that may be the text's
/// end.
constexpr std::array<bool, 256> MakeSeparatorTable() {
  std::array<bool, 256> table{};
  for (std::size_t c = 1; c < table.size(); ++c) {
    table[c] = FileCharacters[c] == CharacterClass::Space && BufferCharacters[c] == CharacterClass::Space;
  }
  return table;
}

inline constexpr std::array<bool, 256> ListSeparators = MakeSeparatorTable();

/// Walks over numbers one behind the other straight in the text, without a token for each. It ends ahead of anything
/// but a number or what parts them, and of its limit.
class NumberCursor {
public:
  /// At a place where a token begins. Only numbers that end ahead of `limit` are taken.
  NumberCursor(const CharacterTable& classes, const char* place, const char* limit)
      : Classes(classes), Place(place), Limit(limit) {}

  /// Takes the next number and goes behind it. False, and nothing moves, if none is left.
  bool Take(double& value) {
    const char* end = ReadPlainNumber(Place, value);
    return end ? StepBehind(end) || TakeOther(value) : TakeOther(value);
  }
  bool Take(float& value) {
    double number = 0.0;
    if (!Take(number)) return false;
    value = static_cast<float>(number);
    return true;
  }
  /// Takes nothing but digits, at most eight, with an optional minus.
  bool Take(int& value) {
    const bool negative = *Place == '-';  // a branch, for minus signs come in patterns: ends of runs
    const char* end = negative ? ReadPlainInteger(Place + 1, value) : ReadPlainInteger(Place, value);
    if (!end || !StepBehind(end)) return false;
    if (negative) value = -value;
    return true;
  }
  /// Takes as many numbers as there are values, or none.
  template <class... Values>
  bool TakeAll(Values&... values) {
    const char* place = Place;
    const char* last = Last;
    if ((Take(values) && ...)) return true;
    Place = place;
    Last = last;
    return false;
  }

  /// Where the last number begins that was taken; null if none was.
  const char* GetLast() const { return Last; }

private:
  static bool Separates(const char* p) { return ListSeparators[static_cast<unsigned char>(*p)]; }

  // False for a word that goes on behind the number, or one that ends too late.
  bool StepBehind(const char* end) {
    if (end >= Limit || (!Separates(end) && Classes[static_cast<unsigned char>(*end)] == CharacterClass::Word)) {
      return false;
    }
    Last = Place;
    while (Separates(end)) ++end;
    Place = end;
    return true;
  }

  bool TakeOther(double& value);

  const CharacterTable& Classes;
  const char* Place;
  const char* Last = nullptr;
  const char* Limit;
};

}  // namespace qelvrml
