#pragma once

#include <cstdint>
#include <vector>

namespace qelvrml {

/// Tells the lines of places in a text. It remembers the lines of places at equal distances, so that all that is asked
/// for together costs one pass over the text, however the places lie.
class LineCounter {
public:
  explicit LineCounter(const char* begin) : Begin(begin) {}

  /// Line of a place of the text, from 1 on; lines end with LF, CR or CRLF.
  std::int64_t GetLineOf(const char* place);

private:
  const char* Begin;
  std::vector<std::int64_t> Lines;  ///< in which the blocks of the text end
};

}  // namespace qelvrml
