#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

// Arithmetic on eight bytes at a time, the first one in the lowest place, on any machine.

namespace qelvrml {

inline constexpr std::uint64_t EachByte = 0x0101010101010101;
inline constexpr std::uint64_t HighBits = EachByte << 7U;

inline std::uint64_t LoadEightBytes(const char* p) {
  std::uint64_t bytes = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&bytes, p, sizeof bytes);
  } else {
    for (unsigned i = 0; i < sizeof bytes; ++i) bytes |= std::uint64_t{static_cast<unsigned char>(p[i])} << (8 * i);
  }
  return bytes;
}

/// The number of bytes in front of the first one whose high bit is set; 8 without one.
constexpr unsigned BytesAhead(std::uint64_t highBits) { return static_cast<unsigned>(std::countr_zero(highBits)) / 8; }

/// Sets the high bit of bytes that are `c`; behind the first of them also that of others.
constexpr std::uint64_t FindByte(std::uint64_t bytes, char c) {
  const std::uint64_t others = bytes ^ (EachByte * static_cast<unsigned char>(c));
  return (others - EachByte) & ~others & HighBits;
}

/// Small ASCII letters become capitals; other bytes stay.
constexpr std::uint64_t ToUpperBytes(std::uint64_t bytes) {
  const std::uint64_t low = bytes & ~HighBits;
  const std::uint64_t fromA = low + EachByte * (0x80U - 'a');
  const std::uint64_t behindZ = low + EachByte * (0x7FU - 'z');
  return bytes ^ ((fromA & ~behindZ & ~bytes & HighBits) >> 2U);
}

}  // namespace qelvrml
