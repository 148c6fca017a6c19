#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "qelvrml/parser/CVRMLNote.h"

namespace qelvrml {

/// The file and the line that a note is about.
struct NotedPlace {
  CBasicString File;
  int Line = 0;
};

/// The notes of one load. To count one that is there already takes no memory.
class NoteBook {
public:
  static constexpr std::size_t MostNotes = 256;
  static constexpr std::size_t LongestName = 256;  ///< in bytes

  const std::vector<CVRMLNote>& GetNotes() const { return Notes; }
  std::uint64_t GetUnlisted() const { return Unlisted; }

  /// Counts something; `place` gives the NotedPlace of the first one. A note that finds no memory isn't listed.
  template <class Place>
  void Add(VRMLNoteTypes kind, std::string_view name, Place place) noexcept {
    name = Cut(name);
    try {
      if (!CountAgain(kind, name)) AddFirst(kind, name, place());
    } catch (...) {
      ++Unlisted;
    }
  }

private:
  using KeyView = std::pair<VRMLNoteTypes, std::string_view>;
  using Key = std::pair<VRMLNoteTypes, std::string>;  // converts to its view
  struct HashKey {
    using is_transparent = void;
    std::size_t operator()(const KeyView& key) const { return std::hash<std::string_view>()(key.second) + key.first; }
    std::size_t operator()(const Key& key) const { return (*this)(KeyView(key)); }
  };
  struct SameKey {
    using is_transparent = void;
    bool operator()(const KeyView& a, const KeyView& b) const { return a == b; }
  };

  static std::string_view Cut(std::string_view name);
  bool CountAgain(VRMLNoteTypes kind, std::string_view name);
  void AddFirst(VRMLNoteTypes kind, std::string_view name, NotedPlace place);

  std::vector<CVRMLNote> Notes;
  std::unordered_map<Key, std::size_t, HashKey, SameKey> Indices;  ///< of the notes
  std::uint64_t Unlisted = 0;
};

}  // namespace qelvrml
