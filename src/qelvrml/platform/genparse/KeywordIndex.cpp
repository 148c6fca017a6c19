#include "qelvrml/platform/genparse/KeywordIndex.h"

#include <cstring>
#include <limits>
#include <map>
#include <mutex>
#include <utility>

#include "qelvrml/platform/genparse/EightBytes.h"

namespace qelvrml {
namespace {

constexpr unsigned FewestSlotBits = 4;
constexpr std::size_t SlotsPerRow = 4;
constexpr std::size_t ChunkSize = 8;

// The bytes of a word from a place on, in capitals, with zeros behind the word.
std::uint64_t ChunkAt(std::string_view word, std::size_t place) {
  const std::uint64_t chunk = ToUpperBytes(LoadEightBytes(word.data() + place));
  const std::size_t left = word.size() - place;
  return left >= ChunkSize ? chunk : chunk & ((std::uint64_t{1} << (8 * left)) - 1);
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

KeywordIndex::KeywordIndex(const ParserKeywordEntry* table, int size) : SlotBits(FewestSlotBits) {
  while ((std::size_t{1} << SlotBits) < SlotsPerRow * static_cast<std::size_t>(size)) ++SlotBits;
  Slots.resize(std::size_t{1} << SlotBits);
  for (const ParserKeywordEntry* row = table; row != table + size; ++row) {
    std::array<char, sizeof row->Name + ChunkSize> name{};
    std::memcpy(name.data(), row->Name, sizeof row->Name);
    Keyword keyword;
    keyword.Length = strnlen(row->Name, sizeof row->Name);
    keyword.Row = row;
    const std::string_view word(name.data(), keyword.Length);
    for (std::size_t i = 0; i * ChunkSize < word.size(); ++i) keyword.Chunks[i] = ChunkAt(word, i * ChunkSize);
    if (word.empty() || Find(word) || Keywords.size() == std::numeric_limits<std::uint16_t>::max()) continue;
    std::size_t slot = SlotOf(keyword.Chunks[0], keyword.Length);
    while (Slots[slot] != 0) slot = (slot + 1) & (Slots.size() - 1);
    Keywords.push_back(keyword);
    Slots[slot] = static_cast<std::uint16_t>(Keywords.size());
  }
}

// Multiplication by an odd number without a pattern spreads the differences into the high bits.
std::size_t KeywordIndex::SlotOf(std::uint64_t firstChunk, std::size_t length) const {
  constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15;
  return static_cast<std::size_t>(((firstChunk ^ (length * EachByte)) * Spread) >> (64 - SlotBits));
}

const ParserKeywordEntry* KeywordIndex::Find(std::string_view word) const {
  if (word.empty() || word.size() > sizeof ParserKeywordEntry::Name) return nullptr;
  const std::uint64_t first = ChunkAt(word, 0);
  for (std::size_t slot = SlotOf(first, word.size()); Slots[slot] != 0; slot = (slot + 1) & (Slots.size() - 1)) {
    const Keyword& keyword = Keywords[Slots[slot] - 1U];
    if (keyword.Chunks[0] != first || keyword.Length != word.size()) continue;
    std::size_t i = 1;
    while (i * ChunkSize < word.size() && keyword.Chunks[i] == ChunkAt(word, i * ChunkSize)) ++i;
    if (i * ChunkSize >= word.size()) return keyword.Row;
  }
  return nullptr;
}

}  // namespace qelvrml
