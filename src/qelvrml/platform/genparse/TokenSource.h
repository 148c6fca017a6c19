#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/platform/fileint/FileText.h"
#include "qelvrml/platform/genparse/CGenericToken.h"

namespace qelvrml {

/// Where a stretch of text that was passed over ended.
struct PassedStretch {
  const char* Position;
  CGenericToken Current;
  CGenericToken Next;
  bool Result;  ///< what the one who passed over it had as its result
};

/// A text that tokens are read from, with what has been found out about it. Shared by all snapshots of its reading.
struct TokenSource {
  std::shared_ptr<const FileText> Text;
  bool IsBuffer = false;
  std::size_t OffsetBelow = 0;  ///< of a buffer: the reading position in the file below it
  std::size_t SizeBelow = 0;    ///< of a buffer: the size of that file

  /// Behind which character the block ends that opens at a character; only for longer blocks.
  mutable std::unordered_map<const char*, const char*> BlockEnds;
  /// Stretches that were passed over, by the beginning of their first token.
  mutable std::unordered_map<const char*, PassedStretch> PassedStretches;
};

/// The whole state of reading tokens; cheap to copy, for the text is shared.
struct ReadingState {
  std::shared_ptr<const TokenSource> Source;
  std::shared_ptr<const CBasicString> Filename;
  const char* Position = nullptr;  ///< behind the next token
  CGenericToken Current;
  CGenericToken Next;
  bool ScanFailed = false;  ///< the last scan for a block's end has come to the end of the input
};

}  // namespace qelvrml
