// Instances of prototypes: the body, the instance's values and the defaults are merged into one text, which is read in
// the place of the instance.

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "qelvrml/dictionary/CVRMLDictionaryProtoUse.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/NoteBook.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/InputFrame.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"
#include "qelvrml/prototypes/InstanceMerge.h"
#include "qelvrml/prototypes/PrototypeNames.h"

namespace {

/// Records an instance, if that is called for, for the time in which the nodes of its body are read. The scope around
/// it doesn't record them meanwhile, for a replay expands the instance again; and should a DEF of the body take the
/// instance's name, its entry stays what it is.
class RecordedInstance {
public:
  RecordedInstance(CVRMLParser& parser, const CBasicString& prototype, std::string_view fields)
      : Load(qelvrml::ParserInternals::Load(parser)) {
    if (!parser.GetDefiningObjects()) return;
    Entry = qelvrml::Record<CVRMLDictionaryProtoUse>(parser, [&](auto& entry) {
      entry.SetPrototypeName(prototype);
      entry.SetFieldText(fields.data(), static_cast<int>(fields.size()));
    });
    Load.InstancesBeingRead.push_back(Entry);
    Scope = parser.GetCurrentSeparator();
    Suspends = std::find(Load.SuspendedScopes.begin(), Load.SuspendedScopes.end(), Scope) == Load.SuspendedScopes.end();
    if (Suspends) Load.SuspendedScopes.push_back(Scope);
  }
  RecordedInstance(const RecordedInstance&) = delete;
  RecordedInstance& operator=(const RecordedInstance&) = delete;
  ~RecordedInstance() {
    if (Scope) Load.InstancesBeingRead.pop_back();
    // The body may have closed the scope that it stands in; then it isn't among the suspended ones any more.
    if (Suspends) std::erase(Load.SuspendedScopes, Scope);
  }

private:
  qelvrml::LoadState& Load;
  const CVRMLDictionaryEntry* Entry = nullptr;
  const CVRMLSeparator* Scope = nullptr;
  bool Suspends = false;
};

/// An instance, as it stands in a text.
struct Instance {
  const CBasicString& Prototype;
  const char* Text;   ///< captured; may be null
  int Length;         ///< of the text
  const char* Place;  ///< where it begins in the text at hand; null for the current token
};

// Reads the nodes of an instance in the place of the file's text.
void ReadExpandedText(CVRMLParser& parser, const std::vector<char>& text, int length, const char* place) {
  const qelvrml::InputFrame frame(parser);
  CVRMLIOManager& tokens = *parser.GetIOManager();
  tokens.StartBufferReading(text.data(), length, place);
  qelvrml::MarkPrototypeNames(parser);
  while (parser.GetCurrentTokenType() != VRMLTokenEndOfFile) parser.ParseBlock();
  tokens.StopBufferReading();
}

// The merge itself takes time, so an instance pays for its own text and the prototype's parts ahead of it.
bool CanMerge(CVRMLParser& parser, CVRMLPrototype& prototype, std::uint64_t ownText) {
  const std::uint64_t parts =
      static_cast<std::uint64_t>(prototype.GetFields().GetCount()) + prototype.GetBodyTemplate().GetPieces().size();
  return qelvrml::CanMake(parser,
                          {.Steps = ownText * qelvrml::StepsOfACapturedByte + parts * qelvrml::StepsOfAMergedField});
}

bool Expand(CVRMLParser& parser, CVRMLPrototype& prototype, const Instance& instance) {
  const auto ownText = static_cast<std::uint64_t>(instance.Text ? std::max(instance.Length, 0) : 0);
  if (!CanMerge(parser, prototype, ownText)) return false;
  std::string prefix;  // of the names; made when it is needed
  const auto noteField = [&](VRMLNoteTypes kind, std::string_view field) {
    if (prefix.empty()) prefix = qelvrml::NotedName(instance.Prototype) + '.';
    qelvrml::Note(parser, kind, prefix + std::string(field.substr(0, qelvrml::NoteBook::LongestName)), instance.Place);
  };
  qelvrml::InstanceMerge merge(prototype, instance.Text, instance.Length, noteField);
  const std::uint64_t merged = merge.GetLength();
  if (merged > static_cast<std::uint64_t>(std::numeric_limits<int>::max())) return false;
  if (!qelvrml::CanMake(parser, {.Replays = 1, .ExpandedText = merged})) return false;
  std::vector<char> expanded(std::max<std::size_t>(merged, 1));
  merge.Write(expanded.data());

  qelvrml::LoadState& load = qelvrml::ParserInternals::Load(parser);
  const qelvrml::ScopedValue<int> expansions(load.Expansions, load.Expansions + 1);
  const qelvrml::ScopedValue<int> rereading(load.Rereading, load.Rereading + 1);
  const RecordedInstance recorded(parser, instance.Prototype, {instance.Text, static_cast<std::size_t>(ownText)});
  ReadExpandedText(parser, expanded, static_cast<int>(merged), instance.Place);
  return true;
}

bool DefineInstance(CVRMLParser& parser, const Instance& instance) {
  if (!parser.GetCurrentSeparator() || parser.GetSkippingBlock()) return false;
  const qelvrml::LoadRun run(parser);
  CVRMLPrototype* prototype = parser.FindPrototype(instance.Prototype);
  if (!prototype) return false;
  qelvrml::LoadState& load = qelvrml::ParserInternals::Load(parser);
  load.MetInstance = true;
  if (load.Expansions >= qelvrml::MaximumExpansions) {
    qelvrml::Note(parser, VRMLNoteLimit, qelvrml::limits::Expansions, instance.Place);
    return false;
  }
  return !prototype->HasBody() || Expand(parser, *prototype, instance);
}

}  // namespace

bool CVRMLParser::ParseProtoUse() {
  if (!CurrentSeparator) return false;
  const char* place = IOManager.GetCurrentPlace();
  CVRMLPrototype* prototype = FindPrototype(CBasicString(IOManager.GetCurrentTokenText()));
  Tokenize();
  if (!prototype) return false;
  char* text = nullptr;
  int length = 0;
  IOManager.CaptureBlockText(&text, &length, false);
  const CBasicAllocatedText owned(text);
  return DefineInstance(*this, {prototype->GetName(), text, length, place});
}

bool CVRMLParser::DefineProtoUse(const CBasicString& name, const char* text, int length) {
  return DefineInstance(*this, {name, text, length, nullptr});
}
