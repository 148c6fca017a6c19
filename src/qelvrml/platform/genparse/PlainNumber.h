#pragma once

#include <array>
#include <cstdint>

#include "qelvrml/platform/genparse/EightBytes.h"

// Numbers of the kinds that nearly all of a file's are of, read eight digits at a time. Other kinds are left to
// ReadNumber, which gives the same values. Eight bytes may be looked at from the place behind the last digit on.

namespace qelvrml {

/// The digits that eight bytes begin with.
struct DigitGroup {
  std::uint64_t Value = 0;
  unsigned Count = 0;
};

// The first byte is the lowest one, and the digit of the highest value. Three steps join neighbours: bytes to pairs of
// digits, these to groups of four, and these to one number.
inline DigitGroup ReadDigitGroup(const char* p) {
  const std::uint64_t digits = LoadEightBytes(p) ^ (EachByte * '0');
  // The lowest byte above 9 gets its highest bit set; a carry goes into bytes behind it only.
  const std::uint64_t others = ((digits + EachByte * 0x76) | digits) & HighBits;
  DigitGroup group;
  group.Count = BytesAhead(others);
  // Up to the top, zeros in front; in two steps, for a shift by all 64 bits isn't defined.
  const unsigned half = 4 * (8 - group.Count);
  std::uint64_t value = (digits << half) << half;
  value = (value * (1 + (10ULL << 8U)) >> 8U) & 0x00FF00FF00FF00FF;
  value = (value * (1 + (100ULL << 16U)) >> 16U) & 0x0000FFFF0000FFFF;
  group.Value = value * (1 + (10'000ULL << 32U)) >> 32U;
  return group;
}

inline constexpr unsigned GroupDigits = 8;
inline constexpr std::array<std::uint64_t, GroupDigits + 1> GroupPowers = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};
/// Those that are exact in a double.
inline constexpr std::array<double, 23> PowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
/// Integers up to this are exact in a double.
inline constexpr std::uint64_t ExactMantissa = std::uint64_t{1} << 53U;

/// Reads up to eight digits. Gives the place behind them, or null for anything else; what stands there has to be looked
/// at.
inline const char* ReadPlainInteger(const char* p, int& value) {
  const DigitGroup group = ReadDigitGroup(p);
  value = static_cast<int>(group.Value);
  return group.Count == 0 ? nullptr : p + group.Count;
}

/// Reads an optional minus, up to seven digits, and a point with up to sixteen more. Gives the place behind them, or
/// null for anything else; what stands there has to be looked at, for an exponent among other things.
inline const char* ReadPlainNumber(const char* p, double& value) {
  const bool negative = *p == '-';
  p += negative ? 1 : 0;
  const DigitGroup whole = ReadDigitGroup(p);
  if (whole.Count == GroupDigits) return nullptr;
  p += whole.Count;
  std::uint64_t mantissa = whole.Value;
  unsigned decimals = 0;
  if (*p == '.') {
    ++p;
    DigitGroup group = ReadDigitGroup(p);
    mantissa = mantissa * GroupPowers[group.Count] + group.Value;
    decimals = group.Count;
    if (group.Count == GroupDigits) {
      group = ReadDigitGroup(p + GroupDigits);
      if (group.Count == GroupDigits || mantissa > ExactMantissa / GroupPowers[group.Count]) return nullptr;
      mantissa = mantissa * GroupPowers[group.Count] + group.Value;
      decimals += group.Count;
    }
    p += decimals;
  }
  if (whole.Count + decimals == 0 || mantissa > ExactMantissa) return nullptr;
  // Both are exact, so the one rounding of their quotient gives the nearest double.
  const double magnitude = static_cast<double>(static_cast<std::int64_t>(mantissa)) / PowersOfTen[decimals];
  value = negative ? -magnitude : magnitude;
  return p;
}

}  // namespace qelvrml
