#include "qelvrml/platform/brixex/shapes/PointBlocks.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>

namespace qelvrml {
namespace {

// Bit by bit: a zero with a sign isn't that of the identity.
bool IsIdentity(const brixMatrix4x4& matrix) {
  using Bits = std::array<std::uint32_t, 16>;
  return std::bit_cast<Bits>(matrix) == std::bit_cast<Bits>(brixMatrix4x4());
}

// Four points as their twelve numbers, for loops over many points: compilers handle several numbers at once.
constexpr std::size_t BlockPoints = 4;
using Block = std::array<float, 3 * BlockPoints>;
static_assert(sizeof(Block) == BlockPoints * sizeof(brixFloatPoint));

Block LoadBlock(const brixFloatPoint* points) {
  Block block;
  std::memcpy(block.data(), points, sizeof block);
  return block;
}

bool AllFinite(const Block& block) {
  constexpr std::uint32_t Exponent = 0x7F80'0000;  // all of its bits are set in what isn't finite
  std::uint32_t others = 0;
  for (const float value : block) {
    others |= (std::bit_cast<std::uint32_t>(value) & Exponent) == Exponent ? 1U : 0U;
  }
  return others == 0;
}

// What a multiplication by the identity does, which takes the sign from zeros, is done to the points in front; gives
// their number.
std::size_t LeaveBlocks(std::span<brixFloatPoint> points) {
  std::size_t done = 0;
  for (; done + BlockPoints <= points.size(); done += BlockPoints) {
    Block block = LoadBlock(&points[done]);
    if (!AllFinite(block)) break;
    for (float& value : block) value += 0.0F;
    std::memcpy(static_cast<void*>(&points[done]), block.data(), sizeof block);
  }
  return done;
}

}  // namespace

void Transform(std::span<brixFloatPoint> points, const brixMatrix4x4& matrix) {
  const std::size_t done = IsIdentity(matrix) ? LeaveBlocks(points) : 0;
  for (brixFloatPoint& point : points.subspan(done)) point = point * matrix;
}

brixBBox BoxOf(std::span<const brixFloatPoint> points) {
  constexpr float Infinity = std::numeric_limits<float>::infinity();
  Block least;
  Block most;
  least.fill(Infinity);
  most.fill(-Infinity);
  std::size_t done = 0;
  for (; done + BlockPoints <= points.size(); done += BlockPoints) {
    const Block block = LoadBlock(&points[done]);
    if (!AllFinite(block)) break;  // not-a-numbers are left out, with the points that they stand in
    for (std::size_t i = 0; i < block.size(); ++i) {
      least[i] = std::min(least[i], block[i]);
      most[i] = std::max(most[i], block[i]);
    }
  }
  brixBBox box;
  for (std::size_t i = 0; done > 0 && i < least.size(); i += 3) {
    box.Add({least[i], least[i + 1], least[i + 2]});
    box.Add({most[i], most[i + 1], most[i + 2]});
  }
  for (const brixFloatPoint& point : points.subspan(done)) box.Add(point);
  return box;
}

}  // namespace qelvrml
