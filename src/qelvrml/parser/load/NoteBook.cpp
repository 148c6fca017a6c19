#include "qelvrml/parser/load/NoteBook.h"

namespace qelvrml {

// A name that is too long loses the character that its last byte stands in, too.
std::string_view NoteBook::Cut(std::string_view name) {
  constexpr std::size_t LongestTail = 3;
  if (name.size() <= LongestName) return name;
  const auto isTail = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  std::size_t length = LongestName;
  while (length > LongestName - LongestTail && isTail(name[length])) --length;
  return name.substr(0, length);
}

// True also where there is no room for another note.
bool NoteBook::CountAgain(VRMLNoteTypes kind, std::string_view name) {
  const auto known = Indices.find(KeyView(kind, name));
  if (known != Indices.end()) {
    ++Notes[known->second].Count;
    return true;
  }
  if (Notes.size() < MostNotes) return false;
  ++Unlisted;
  return true;
}

void NoteBook::AddFirst(VRMLNoteTypes kind, std::string_view name, NotedPlace place) {
  CVRMLNote note{
      .Kind = kind, .Name = CBasicString(name), .Count = 1, .File = std::move(place.File), .Line = place.Line};
  Notes.reserve(MostNotes);  // so that nothing fails behind the index
  Indices.emplace(Key(kind, name), Notes.size());
  Notes.push_back(std::move(note));
}

}  // namespace qelvrml
