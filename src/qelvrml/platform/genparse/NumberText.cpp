#include "qelvrml/platform/genparse/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

#include "qelvrml/platform/genparse/PlainNumber.h"

namespace qelvrml {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();
constexpr int MantissaDigits = 19;  // what 64 bits always hold
constexpr std::int64_t ExponentBound = 1'000'000'000'000'000;

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The parts of a decimal number: Mantissa * 10^Exponent, with the digits behind the 19th cut off.
struct Decimal {
  std::uint64_t Mantissa = 0;
  std::int64_t Exponent = 0;
  int Digits = 0;    // significant digits in the mantissa
  bool Cut = false;  // digits were left out
  bool Valid = false;
};

// Takes digits into the mantissa and gives the place behind them; `scale` is what each digit taken does to the
// exponent.
const char* TakeDigits(const char* p, const char* last, Decimal& decimal, int scale) {
  for (; p != last && IsDigit(*p); ++p) {
    decimal.Valid = true;
    if (decimal.Digits == MantissaDigits) {
      decimal.Cut = true;
      decimal.Exponent += scale + 1;
      continue;
    }
    decimal.Mantissa = decimal.Mantissa * 10 + static_cast<unsigned>(*p - '0');
    decimal.Digits += decimal.Mantissa != 0 ? 1 : 0;
    decimal.Exponent += scale;
  }
  return p;
}

// Digits, an optional point with more digits, an optional exponent. Not valid unless that is all.
Decimal ReadDecimal(const char* p, const char* last) {
  Decimal decimal;
  p = TakeDigits(p, last, decimal, 0);
  if (p != last && *p == '.') p = TakeDigits(p + 1, last, decimal, -1);
  if (p == last || !decimal.Valid) return decimal;

  decimal.Valid = false;
  if (*p != 'e' && *p != 'E') return decimal;
  ++p;
  const bool negative = p != last && *p == '-';
  if (p != last && (*p == '-' || *p == '+')) ++p;
  std::int64_t exponent = 0;
  for (; p != last && IsDigit(*p); ++p) {
    decimal.Valid = true;
    exponent = std::min(exponent * 10 + (*p - '0'), ExponentBound);
  }
  decimal.Exponent += negative ? -exponent : exponent;
  decimal.Valid = decimal.Valid && p == last;
  return decimal;
}

double DecimalValue(const Decimal& decimal, const char* first, const char* last) {
  constexpr auto ExactPower = static_cast<std::int64_t>(PowersOfTen.size()) - 1;
  if (!decimal.Cut && decimal.Mantissa <= ExactMantissa && std::abs(decimal.Exponent) <= ExactPower) {
    // Both factors are exact, so the one rounding of the product or quotient gives the nearest double.
    const auto mantissa = static_cast<double>(decimal.Mantissa);
    const double power = PowersOfTen[static_cast<std::size_t>(std::abs(decimal.Exponent))];
    return decimal.Exponent < 0 ? mantissa / power : mantissa * power;
  }
  double value = 0.0;
  const auto [end, error] = std::from_chars(first, last, value);
  if (error == std::errc::result_out_of_range) return decimal.Exponent > 0 ? Largest : 0.0;
  return std::min(value, Largest);
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool ReadHexadecimal(std::string_view digits, double& value) {
  double sum = 0.0;
  for (const char c : digits) {
    const int digit = HexDigit(c);
    if (digit < 0) return false;
    sum = std::min(sum * 16.0 + digit, Largest);
  }
  value = sum;
  return !digits.empty();
}

bool ReadUnsigned(std::string_view word, double& value) {
  if (word.size() >= 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X')) {
    return ReadHexadecimal(word.substr(2), value);
  }
  const char* last = word.data() + word.size();
  const Decimal decimal = ReadDecimal(word.data(), last);
  if (decimal.Valid) value = DecimalValue(decimal, word.data(), last);
  return decimal.Valid;
}

}  // namespace

bool ReadNumber(std::string_view word, double& value) {
  const bool negative = !word.empty() && word.front() == '-';
  if (!word.empty() && (word.front() == '-' || word.front() == '+')) word.remove_prefix(1);
  if (!ReadUnsigned(word, value)) return false;
  if (negative) value = -value;
  return true;
}

}  // namespace qelvrml
