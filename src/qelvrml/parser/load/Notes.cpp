#include "qelvrml/parser/load/Notes.h"

#include <new>
#include <string>

#include "qelvrml/foundation/TextConversion.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/NoteBook.h"
#include "qelvrml/parser/load/ParserInternals.h"

namespace qelvrml {
namespace {

// An unpacked file goes by the name of the packed one.
CBasicString NotedFile(CVRMLParser& parser) {
  const LoadState& load = ParserInternals::Load(parser);
  const CBasicString& file = parser.GetIOManager()->GetFilename();
  return load.Running && file == ParserInternals::UnpackedFile(parser) ? load.MainFile : file;
}

}  // namespace

void Note(CVRMLParser& parser, VRMLNoteTypes kind, std::string_view name, const char* place) noexcept {
  const CVRMLIOManager& tokens = *parser.GetIOManager();
  ParserInternals::Notes(parser).Add(kind, name, [&]() -> NotedPlace {
    return {NotedFile(parser), tokens.GetFileLineOf(place ? place : tokens.GetCurrentPlace())};
  });
}

std::string NotedName(const CBasicString& name) {
  std::u16string_view start = name.GetView().substr(0, NoteBook::LongestName);
  const bool endsInPair = start.size() == NoteBook::LongestName && (start.back() & 0xFC00U) == 0xD800U;
  if (endsInPair) start.remove_suffix(1);
  return Narrow(start).value_or(std::string());
}

void NoteName(CVRMLParser& parser, VRMLNoteTypes kind, const CBasicString& name, const char* place) noexcept {
  try {
    Note(parser, kind, NotedName(name), place);
  } catch (const std::bad_alloc&) {
    Note(parser, kind, std::string_view(), place);
  }
}

void NoteNoGeometry(CVRMLParser& parser) {
  const LoadState& load = ParserInternals::Load(parser);
  const std::string prototype = load.MetInstance ? std::string() : NotedName(load.LastPrototype);
  ParserInternals::Notes(parser).Add(VRMLNoteNoGeometry, prototype, [&load] { return NotedPlace{load.MainFile, 0}; });
}

bool IsAtEndOfScene(const CVRMLParser& parser) {
  const LoadState& load = ParserInternals::Load(parser);
  return parser.GetCurrentTokenType() == VRMLTokenEndOfFile && load.Expansions == 0 && load.FilesBeingRead.size() == 1;
}

void NoteNode(CVRMLParser& parser, VRMLNoteTypes kind) {
  if (!parser.GetSkippingBlock()) Note(parser, kind, parser.GetIOManager()->GetCurrentTokenText());
}

void NoteMisplacedNode(CVRMLParser& parser) {
  if (!parser.GetSkippingBlock()) Note(parser, VRMLNoteMisplacedNode, parser.GetIOManager()->GetWordBefore());
}

void NoteNodeAndName(CVRMLParser& parser, VRMLNoteTypes kind) {
  if (parser.GetSkippingBlock()) return;
  NoteNode(parser, kind);
  if (parser.GetDefinedEntity()) NoteName(parser, VRMLNoteDroppedName, parser.GetEntityName());
}

}  // namespace qelvrml
