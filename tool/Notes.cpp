#include "Notes.h"

#include <array>
#include <filesystem>

#include "Figures.h"
#include "Text.h"

namespace {

struct NoteKind {
  VRMLNoteTypes Kind;
  const char* Name;  ///< in JSON
  const char* What;  ///< for people, behind the name that the note gives and a colon
};

constexpr std::array NoteKinds = {
    NoteKind{VRMLNoteUnknownNode, "unknownNode", "passed over"},
    NoteKind{VRMLNoteDroppedNode, "droppedNode", "read and dropped"},
    NoteKind{VRMLNoteDroppedName, "droppedName", "DEF of a node that was left out, so that the name means nothing"},
    NoteKind{VRMLNoteMisplacedNode, "misplacedNode", "out of place, and its } ended the node around it"},
    NoteKind{VRMLNoteRootClosed, "rootClosed", "a } too many, and what stands behind it is in no scope"},
    NoteKind{VRMLNoteUnknownUse, "unknownUse", "USE of a name that means nothing"},
    NoteKind{VRMLNoteUnknownField, "unknownField", "a field that the prototype doesn't have"},
    NoteKind{VRMLNoteFieldWithoutValue, "fieldWithoutValue", "a field of a type whose values aren't read"},
    NoteKind{VRMLNoteDroppedPrototype, "droppedPrototype", "a PROTO that has no end or can't be read, not declared"},
    NoteKind{VRMLNoteNamelessPrototype, "namelessPrototype", "a PROTO whose name was taken already, never used"},
    NoteKind{VRMLNoteMissingFile, "missingFile", "not found"},
    NoteKind{VRMLNoteRefusedFile, "refusedFile", "found, and can't be used"},
    NoteKind{VRMLNoteLimit, "limit", "limit reached, and what was beyond it left out"},
    NoteKind{VRMLNoteExtrusionWithoutData, "extrusionWithoutData", "lacks a spine or a cross-section"},
    NoteKind{VRMLNoteEmptyGeometry, "emptyGeometry", "added nothing to the model"},
    NoteKind{VRMLNoteNothingChosen, "nothingChosen", "chose none of its children"},
};

constexpr bool InOrder() {
  for (std::size_t i = 0; i < NoteKinds.size(); ++i) {
    if (NoteKinds[i].Kind != i) return false;
  }
  return true;
}
static_assert(NoteKinds.size() == VRMLNoteTypeCount && InOrder(), "a row for each kind, found by its number");

const NoteKind& KindOf(VRMLNoteTypes kind) { return NoteKinds.at(kind); }

// " of parts/a.wrl": the path as seen from the main file's folder, and nothing for the main file itself.
std::string OfFile(const std::string& file, const std::string& mainFile) {
  if (file.empty() || file == mainFile) return "";
  const std::string folder = std::filesystem::path(mainFile).parent_path().string() + "/";
  return " of " + Printable(file.starts_with(folder) ? file.substr(folder.size()) : file);
}

}  // namespace

std::string KindName(VRMLNoteTypes kind) { return KindOf(kind).Name; }

std::string Sentence(const CVRMLNote& note, const std::string& mainFile) {
  const std::string name = Printable(note.Name);
  const std::string times = note.Count == 1 ? ", once" : ", " + Grouped(note.Count) + " times, first";
  return (name.empty() ? "" : name + ": ") + KindOf(note.Kind).What + times + " in line " + std::to_string(note.Line) +
         OfFile(ToUtf8(note.File), mainFile);
}
