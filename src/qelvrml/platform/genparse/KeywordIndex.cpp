#include "qelvrml/platform/genparse/KeywordIndex.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <utility>

#include "qelvrml/platform/genparse/Characters.h"

namespace qelvrml {
namespace {

constexpr std::size_t SlotsPerRow = 4;

std::size_t HashWord(std::string_view word) {
  const auto folded = [word](std::size_t i) {
    return static_cast<std::size_t>(static_cast<unsigned char>(word[i]) & 0xDFU);
  };
  const std::size_t last = word.size() - 1;
  return word.size() * 7 + folded(0) * 31 + folded(last) * 131 + folded(last / 2) * 613 + folded(last / 3) * 1399;
}

bool EqualIgnoringCase(std::string_view name, std::string_view word) {
  const auto equal = [](char a, char b) { return a == ToUpperAscii(b); };
  return name.size() == word.size() && std::equal(name.begin(), name.end(), word.begin(), equal);
}

std::size_t SlotCount(int size) {
  std::size_t count = 16;
  while (count < SlotsPerRow * static_cast<std::size_t>(size)) count *= 2;
  return count;
}

}  // namespace

std::shared_ptr<const KeywordIndex> KeywordIndex::ForTable(const ParserKeywordEntry* table, int size) {
  static std::mutex mutex;
  static auto& known = *new std::map<std::pair<const ParserKeywordEntry*, int>, std::weak_ptr<const KeywordIndex>>;
  if (!table || size <= 0) return nullptr;

  const std::scoped_lock lock(mutex);
  std::weak_ptr<const KeywordIndex>& entry = known[{table, size}];
  std::shared_ptr<const KeywordIndex> index = entry.lock();
  if (!index) {
    index = std::make_shared<const KeywordIndex>(table, size);
    entry = index;
  }
  return index;
}

KeywordIndex::KeywordIndex(const ParserKeywordEntry* table, int size) : Slots(SlotCount(size)) {
  for (const ParserKeywordEntry* row = table; row != table + size; ++row) {
    const std::string_view name(row->Name, strnlen(row->Name, sizeof row->Name));
    if (name.empty()) continue;
    std::size_t slot = HashWord(name) & (Slots.size() - 1);
    while (Slots[slot].Row) slot = (slot + 1) & (Slots.size() - 1);
    Slots[slot] = {name, row};
  }
}

const ParserKeywordEntry* KeywordIndex::Find(std::string_view word) const {
  if (word.empty() || word.size() > sizeof ParserKeywordEntry::Name) return nullptr;
  for (std::size_t slot = HashWord(word) & (Slots.size() - 1); Slots[slot].Row;
       slot = (slot + 1) & (Slots.size() - 1)) {
    if (EqualIgnoringCase(Slots[slot].Name, word)) return Slots[slot].Row;
  }
  return nullptr;
}

}  // namespace qelvrml
