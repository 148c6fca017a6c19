// Instances of prototypes: the body, the instance's values and the defaults are merged into one text, which is read in
// the place of the instance.

#include <algorithm>
#include <limits>
#include <string_view>
#include <vector>

#include "qelvrml/dictionary/CVRMLDictionaryProtoUse.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/load/LoadState.h"
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

// Reads the nodes of an instance in the place of the file's text.
void ReadExpandedText(CVRMLParser& parser, const char* text, int length) {
  const qelvrml::InputFrame frame(parser);
  CVRMLIOManager& tokens = *parser.GetIOManager();
  tokens.StartBufferReading(text, length);
  qelvrml::MarkPrototypeNames(parser);
  while (parser.GetCurrentTokenType() != VRMLTokenEndOfFile) parser.ParseBlock();
  tokens.StopBufferReading();
}

}  // namespace

bool CVRMLParser::ParseProtoUse() {
  if (!CurrentSeparator) return false;
  CVRMLPrototype* prototype = FindPrototype(CBasicString(IOManager.GetCurrentTokenText()));
  Tokenize();
  if (!prototype) return false;
  char* text = nullptr;
  int length = 0;
  IOManager.CaptureBlockText(&text, &length, false);
  const CBasicAllocatedText owned(text);
  return DefineProtoUse(prototype->GetName(), text, length);
}

bool CVRMLParser::DefineProtoUse(const CBasicString& name, const char* text, int length) {
  if (!CurrentSeparator || SkippingBlock) return false;
  const qelvrml::LoadRun run(*this);
  CVRMLPrototype* prototype = FindPrototype(name);
  if (!prototype || Load->Expansions >= qelvrml::MaximumExpansions) return false;
  if (!prototype->HasBody()) return true;

  // The merge itself takes time, so the instance pays for its own text and the prototype's parts ahead of it.
  const auto ownText = static_cast<std::uint64_t>(text ? std::max(length, 0) : 0);
  const std::uint64_t parts =
      static_cast<std::uint64_t>(prototype->GetFields().GetCount()) + prototype->GetBodyTemplate().GetPieces().size();
  const std::uint64_t steps = ownText * qelvrml::StepsOfACapturedByte + parts * qelvrml::StepsOfAMergedField;
  if (!qelvrml::CanMake(*this, {.Steps = steps})) return false;
  qelvrml::InstanceMerge merge(*prototype, text, length);
  const std::uint64_t merged = merge.GetLength();
  if (merged > static_cast<std::uint64_t>(std::numeric_limits<int>::max())) return false;
  if (!qelvrml::CanMake(*this, {.Replays = 1, .ExpandedText = merged})) return false;
  std::vector<char> expanded(std::max<std::size_t>(merged, 1));
  merge.Write(expanded.data());

  const qelvrml::ScopedValue<int> expansions(Load->Expansions, Load->Expansions + 1);
  const qelvrml::ScopedValue<int> rereading(Load->Rereading, Load->Rereading + 1);
  const RecordedInstance recorded(*this, name, {text, static_cast<std::size_t>(ownText)});
  ReadExpandedText(*this, expanded.data(), static_cast<int>(merged));
  return true;
}
