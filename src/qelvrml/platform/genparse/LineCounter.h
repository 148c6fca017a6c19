#pragma once

#include <cstdint>

namespace qelvrml {

/// Tells the lines of places in a text. It counts from the place that was asked for before, so that places in their
/// order cost one pass over the text.
class LineCounter {
public:
  explicit LineCounter(const char* begin) : Place(begin) {}

  /// Line of a place of the text, from 1 on; lines end with LF, CR or CRLF.
  std::int64_t GetLineOf(const char* place);

private:
  const char* Place;
  std::int64_t Line = 1;
};

}  // namespace qelvrml
