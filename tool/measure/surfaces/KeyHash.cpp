#include "measure/surfaces/KeyHash.h"

#include <random>

std::size_t KeyHash::operator()(std::uint64_t key) const {
  static const std::uint64_t Start = (std::uint64_t{std::random_device()()} << 32U) | std::random_device()();
  constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15U;  // 2^64 by the golden ratio
  key ^= Start;
  for (int round = 0; round < 2; ++round) {
    key = (key ^ (key >> 32U)) * Factor;
  }
  return static_cast<std::size_t>(key ^ (key >> 32U));
}
