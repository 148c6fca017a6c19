#include "qelvrml/platform/genparse/LineCounter.h"

#include <cstddef>

namespace qelvrml {
namespace {

constexpr std::size_t BlockLength = 4096;

// A CR in front of an LF doesn't count: the LF does. There is a NUL behind the text.
std::int64_t CountLineEnds(const char* begin, const char* end) {
  std::int64_t count = 0;
  for (const char* p = begin; p < end; ++p) count += (*p == '\n' || (*p == '\r' && p[1] != '\n')) ? 1 : 0;
  return count;
}

}  // namespace

std::int64_t LineCounter::GetLineOf(const char* place) {
  const auto block = static_cast<std::size_t>(place - Begin) / BlockLength;
  const auto lineAtBlock = [this](std::size_t index) { return index == 0 ? 1 : Lines[index - 1]; };
  const auto beginOf = [this](std::size_t index) { return Begin + index * BlockLength; };
  for (std::size_t i = Lines.size(); i < block; ++i) {
    Lines.push_back(lineAtBlock(i) + CountLineEnds(beginOf(i), beginOf(i + 1)));
  }
  return lineAtBlock(block) + CountLineEnds(beginOf(block), place);
}

}  // namespace qelvrml
