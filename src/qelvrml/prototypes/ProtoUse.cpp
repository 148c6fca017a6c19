// Instances of prototypes: the body, the instance's values and the defaults are merged into one text, which is read in
// the place of the instance.

#include <algorithm>
#include <limits>
#include <vector>

#include "qelvrml/dictionary/CVRMLDictionaryProtoUse.h"
#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/Limits.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"
#include "qelvrml/prototypes/InstanceMerge.h"

bool CVRMLParser::ParseProtoUse() {
  if (!CurrentSeparator) return false;
  CVRMLPrototype* prototype = FindPrototype(CBasicString(IOManager.GetCurrentTokenText()));
  Tokenize();
  if (!prototype) return false;
  char* text = nullptr;
  int length = 0;
  IOManager.CaptureBlockText(&text, &length, false);
  const qelvrml::AllocatedText owned(text);
  return DefineProtoUse(prototype->GetName(), text, length);
}

bool CVRMLParser::DefineProtoUse(const CBasicString& name, const char* text, int length) {
  if (!CurrentSeparator || SkippingBlock) return false;
  CVRMLPrototype* prototype = FindPrototype(name);
  if (!prototype || Expansions >= qelvrml::MaximumExpansions) return false;
  if (!prototype->GetBodyText()) return true;

  qelvrml::InstanceMerge merge(*prototype, text, length);
  const std::uint64_t merged = merge.GetLength();
  if (merged > static_cast<std::uint64_t>(std::numeric_limits<int>::max())) return false;
  if (!SpendReplayCost(qelvrml::EntryReplayCost + merged)) return false;
  std::vector<char> expanded(std::max<std::size_t>(merged, 1));
  merge.Write(expanded.data());

  const bool recorded = GetDefiningObjects();
  Record<CVRMLDictionaryProtoUse>([&](auto& entry) {
    entry.SetPrototypeName(name);
    entry.SetFieldText(text, length);
  });
  ReadExpandedText(expanded.data(), static_cast<int>(merged), recorded);
  return true;
}

// Reads the nodes of an instance. While those of a recorded instance are read, the scope around it doesn't record them:
// a replay expands the instance again.
void CVRMLParser::ReadExpandedText(const char* text, int length, bool recorded) {
  const qelvrml::ScopedValue<int> expansions(Expansions, Expansions + 1);
  CVRMLSeparator* scope = recorded && !CurrentSeparator->RecordingSuspended ? CurrentSeparator : nullptr;
  const std::uint64_t serial = scope ? scope->Serial : 0;
  if (scope) scope->RecordingSuspended = true;
  CGenericIOState state;
  SaveIOState(state);
  IOManager.StartBufferReading(text, length);
  MarkPrototypeNames();
  while (GetCurrentTokenType() != VRMLTokenEndOfFile) ParseBlock();
  IOManager.StopBufferReading();
  RestoreIOState(state);
  if (CVRMLSeparator* open = scope ? FindOpenSeparator(serial) : nullptr) open->RecordingSuspended = false;
}

// The body of an instance may have closed the scope that it stands in.
CVRMLSeparator* CVRMLParser::FindOpenSeparator(std::uint64_t serial) {
  for (CBasicListElement* element = SeparatorStack.GoToFirst(); element; element = element->Next) {
    auto* separator = static_cast<CVRMLSeparator*>(element->Data);
    if (separator->Serial == serial) return separator;
  }
  return nullptr;
}
