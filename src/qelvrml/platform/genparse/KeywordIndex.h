#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "qelvrml/platform/genparse/GenericTypes.h"

namespace qelvrml {

/// Finds the row of a keyword table for a word, whatever its case. Words are compared eight bytes at a time; as a rule
/// a word costs one comparison.
class KeywordIndex {
public:
  /// The index of a table. It is shared by all that use the same table at the same time, which outlives them.
  static std::shared_ptr<const KeywordIndex> ForTable(const ParserKeywordEntry* table, int size);

  KeywordIndex(const ParserKeywordEntry* table, int size);

  /// The first row with that name, or null. Seven bytes behind the word may be looked at.
  const ParserKeywordEntry* Find(std::string_view word) const;

private:
  static constexpr std::size_t NameChunks = (sizeof ParserKeywordEntry::Name + 7) / 8;

  /// A keyword in capitals, eight bytes at a time, with zeros behind it.
  struct Keyword {
    std::array<std::uint64_t, NameChunks> Chunks{};
    std::size_t Length = 0;
    const ParserKeywordEntry* Row = nullptr;
  };

  std::size_t SlotOf(std::uint64_t firstChunk, std::size_t length) const;

  std::vector<Keyword> Keywords;
  std::vector<std::uint16_t> Slots;  ///< open addressing; number of the keyword from 1 on, 0 for none
  unsigned SlotBits = 0;             ///< there are two to this power
};

}  // namespace qelvrml
