#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "qelvrml/platform/genparse/GenericTypes.h"

namespace qelvrml {

/// Finds the row of a keyword table for a word, whatever its case. A word costs one hash of a few of its characters
/// and, as a rule, one comparison.
class KeywordIndex {
public:
  /// The index of a table. It is shared by all that use the same table at the same time, which outlives them.
  static std::shared_ptr<const KeywordIndex> ForTable(const ParserKeywordEntry* table, int size);

  KeywordIndex(const ParserKeywordEntry* table, int size);

  /// The first row with that name, or null.
  const ParserKeywordEntry* Find(std::string_view word) const;

private:
  struct Slot {
    std::string_view Name;
    const ParserKeywordEntry* Row = nullptr;
  };

  std::vector<Slot> Slots;  ///< open addressing; a power of two in number
};

}  // namespace qelvrml
