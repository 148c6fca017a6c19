#include "text/Notes.h"

#include <array>
#include <filesystem>

#include "text/Figures.h"
#include "text/Text.h"

namespace {

struct NoteKind {
  VRMLNoteTypes Kind;
  const char* Name;             ///< in JSON
  const char* What;             ///< for people, behind the name that the note gives and a colon
  const char* Alone = nullptr;  ///< for people without a name, where that is another sentence
};

constexpr std::array NoteKinds = {
    NoteKind{VRMLNoteUnknownNode, "unknownNode", "passed over"},
    NoteKind{VRMLNoteDroppedNode, "droppedNode", "read and dropped"},
    NoteKind{VRMLNoteDroppedName, "droppedName", "DEF of a node that was left out"},
    NoteKind{VRMLNoteMisplacedNode, "misplacedNode", "out of place, and its } ended the node around it"},
    NoteKind{VRMLNoteRootClosed, "rootClosed",
             "a } too many, so that what stands behind it is lost or in a wrong scope"},
    NoteKind{VRMLNoteUnknownUse, "unknownUse", "USE of a name that means nothing"},
    NoteKind{VRMLNoteUnknownField, "unknownField", "a field that the prototype doesn't have"},
    NoteKind{VRMLNoteFieldWithoutValue, "fieldWithoutValue", "a field of a type whose values aren't read"},
    NoteKind{VRMLNoteDroppedPrototype, "droppedPrototype", "a PROTO that can't be read to its end, not declared"},
    NoteKind{VRMLNoteNamelessPrototype, "namelessPrototype", "a PROTO whose name was taken already, of no use"},
    NoteKind{VRMLNoteMissingFile, "missingFile", "not found"},
    NoteKind{VRMLNoteRefusedFile, "refusedFile", "found, and can't be used"},
    NoteKind{VRMLNoteLimit, "limit", "limit reached, and what was beyond it left out"},
    NoteKind{VRMLNoteExtrusionWithoutData, "extrusionWithoutData", "lacks a spine or a cross-section"},
    NoteKind{VRMLNoteEmptyGeometry, "emptyGeometry", "added nothing to the model"},
    NoteKind{VRMLNoteNothingChosen, "nothingChosen", "chose none of its children"},
    NoteKind{VRMLNoteLostEnd, "lostEnd", "took the end of a node or a list along, so that a } ends too much"},
    NoteKind{VRMLNoteNoGeometry, "noGeometry", "a PROTO that no node uses, and no node makes an object",
             "no node makes an object"},
    NoteKind{VRMLNoteLostParts, "lostParts", "faces or lines that name points that there aren't were left out"},
};

constexpr bool InOrder() {
  for (std::size_t i = 0; i < NoteKinds.size(); ++i) {
    if (NoteKinds[i].Kind != i) return false;
  }
  return true;
}
static_assert(NoteKinds.size() == VRMLNoteTypeCount && InOrder(), "a row for each kind, found by its number");

const NoteKind& KindOf(VRMLNoteTypes kind) { return NoteKinds.at(kind); }

bool NamesFile(VRMLNoteTypes kind) { return kind == VRMLNoteMissingFile || kind == VRMLNoteRefusedFile; }

// A path as seen from the folder of the main file, if it is in there.
std::string FromFolder(const CBasicString& path, const std::string& mainFile) {
  const std::string text = Printable(path);
  const std::string folder = std::filesystem::path(Printable(mainFile)).parent_path().string() + "/";
  return text.starts_with(folder) ? text.substr(folder.size()) : text;
}

// ", 22 times, first in line 14 of parts/a.wrl", or less if there is no more to tell.
std::string Place(const CVRMLNote& note, const std::string& mainFile) {
  std::string text = note.Count > 1 ? ", " + Grouped(note.Count) + " times" : "";
  if (note.Line == 0) return text;
  text += (note.Count > 1 ? ", first in line " : ", once, in line ") + Grouped(static_cast<unsigned>(note.Line));
  if (note.File != mainFile.c_str()) text += " of " + FromFolder(note.File, mainFile);
  return text;
}

}  // namespace

std::string KindName(VRMLNoteTypes kind) { return KindOf(kind).Name; }

std::string Sentence(const CVRMLNote& note, const std::string& mainFile) {
  const NoteKind& kind = KindOf(note.Kind);
  const std::string name = NamesFile(note.Kind) ? FromFolder(note.Name, mainFile) : Printable(note.Name);
  if (!name.empty()) return name + ": " + kind.What + Place(note, mainFile);
  return (kind.Alone ? kind.Alone : kind.What) + Place(note, mainFile);
}
