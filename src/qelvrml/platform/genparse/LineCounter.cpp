#include "qelvrml/platform/genparse/LineCounter.h"

namespace qelvrml {
namespace {

// A CR in front of an LF doesn't count: the LF does. There is a NUL behind the text.
std::int64_t CountLineEnds(const char* begin, const char* end) {
  std::int64_t count = 0;
  for (const char* p = begin; p < end; ++p) count += (*p == '\n' || (*p == '\r' && p[1] != '\n')) ? 1 : 0;
  return count;
}

}  // namespace

std::int64_t LineCounter::GetLineOf(const char* place) {
  Line += CountLineEnds(Place, place) - CountLineEnds(place, Place);
  Place = place;
  return Line;
}

}  // namespace qelvrml
