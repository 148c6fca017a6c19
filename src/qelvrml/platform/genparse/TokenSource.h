#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>

#include "qelvrml/platform/fileint/FileText.h"
#include "qelvrml/platform/genparse/CGenericToken.h"
#include "qelvrml/platform/genparse/Characters.h"
#include "qelvrml/platform/genparse/LineCounter.h"

namespace qelvrml {

/// A place of a reading.
struct ReadingPlace {
  std::uint64_t Text = 0;          ///< number of the text; 0 for none
  const char* Position = nullptr;  ///< behind the next token
  CGenericToken Current;
  CGenericToken Next;
};

/// Where a stretch of text that was passed over ended.
struct PassedStretch {
  ReadingPlace End;
  bool Result;  ///< what the one who passed over it had as its result
};

/// A text that tokens are read from, with what has been found out about it. Shared by all snapshots of its reading.
struct TokenSource {
  explicit TokenSource(std::shared_ptr<const FileText> text, bool isBuffer = false)
      : Text(std::move(text)),
        End(Text->end()),
        IsBuffer(isBuffer),
        Classes(isBuffer ? BufferCharacters : FileCharacters),
        Lines(Text->begin()) {}

  const std::shared_ptr<const FileText> Text;
  const char* const End;  ///< of the text
  const bool IsBuffer;
  const CharacterTable& Classes;
  const std::uint64_t Number = NextNumber();  ///< no other text of the process has it
  std::size_t OffsetBelow = 0;                ///< of a buffer: the reading position in the file below it
  std::size_t SizeBelow = 0;                  ///< of a buffer: the size of that file
  std::shared_ptr<const TokenSource> Below;   ///< of a buffer: the text of that file; null for none
  const char* PlaceBelow = nullptr;           ///< of a buffer: the place in that text that it is read for

  mutable LineCounter Lines;

  /// Behind which character the block ends that opens at a character; only for longer blocks.
  mutable std::unordered_map<const char*, const char*> BlockEnds;

  /// The furthest place from which the reading has gone back.
  mutable ReadingPlace Furthest;

  /// Stretches of one outermost pass, by the beginning of their first token. Those of another pass are forgotten.
  std::unordered_map<const char*, PassedStretch>& StretchesOf(std::uint64_t pass) const {
    if (pass != PassOfStretches) PassedStretches.clear();
    PassOfStretches = pass;
    return PassedStretches;
  }

private:
  static std::uint64_t NextNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
  }

  mutable std::unordered_map<const char*, PassedStretch> PassedStretches;
  mutable std::uint64_t PassOfStretches = 0;
};

}  // namespace qelvrml
