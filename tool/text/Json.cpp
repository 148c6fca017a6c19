#include "text/Json.h"

#include <array>
#include <charconv>
#include <utility>

#include "text/Notes.h"
#include "text/Text.h"

double Shortest(float value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  double result = value;
  std::from_chars(text.data(), end, result);
  return result;
}

void AddNotes(const LoadedFile& file, Json& object) {
  Json notes = Json::array();
  for (const CVRMLNote& note : file.Notes) {
    notes.push_back({{"kind", KindName(note.Kind)},
                     {"name", ToUtf8(note.Name)},
                     {"count", note.Count},
                     {"file", ToUtf8(note.File)},
                     {"line", note.Line}});
  }
  object["notes"] = std::move(notes);
  if (file.UnlistedNotes > 0) object["unlistedNotes"] = file.UnlistedNotes;
}
