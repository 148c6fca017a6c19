#include "qelvrml/parser/load/NoteBook.h"

namespace qelvrml {

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
