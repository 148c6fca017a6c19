// The dictionary of DEF names, and the USE statement.

#include <algorithm>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"
#include "qelvrml/dictionary/CVRMLDictionaryUse.h"
#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/platform/brixex/NameIndexedList.h"

namespace {

template <class Item>
bool Contains(const std::vector<const Item*>& items, const Item* item) {
  return std::find(items.begin(), items.end(), item) != items.end();
}

CVRMLDictionarySeparator* AsSeparatorEntry(CVRMLDictionaryEntry* entry) {
  // The type of a host's entry may say anything.
  return entry->GetType() == DictionaryEntrySeparator ? dynamic_cast<CVRMLDictionarySeparator*>(entry) : nullptr;
}

// Puts an entry that is in the dictionary into the scope that it was recorded in. A separator whose own entry has just
// been replaced by one of the same name goes on recording into the new one.
void PutIntoScope(CVRMLParser& parser, CVRMLDictionaryEntry& entry, bool wasRecording) {
  CVRMLSeparator* scope = parser.GetCurrentSeparator();
  if (!scope) return;
  if (scope->GetDictionaryEntry()) {
    CVRMLDictionarySeparator* recording = AsSeparatorEntry(scope->GetDictionaryEntry());
    if (recording && qelvrml::IsRecording(parser)) recording->AddChild(&entry);
  } else if (wasRecording && entry.GetType() == DictionaryEntrySeparator) {
    scope->SetDictionaryEntry(&entry);
  }
}

}  // namespace

bool qelvrml::IsRecording(const CVRMLParser& parser) {
  const CVRMLSeparator* scope = parser.GetCurrentSeparator();
  return scope && scope->GetDictionaryEntry() && !Contains(ParserInternals::Load(parser).SuspendedScopes, scope);
}

CKelList* CVRMLParser::GetObjectDictionary() { return ObjectDictionary.get(); }

bool CVRMLParser::AddDictionaryObject(CVRMLDictionaryEntry* entry) {
  std::unique_ptr<CVRMLDictionaryEntry> owned(entry);
  if (!entry || SkippingBlock) return false;

  const bool wasRecording = CurrentSeparator && CurrentSeparator->GetDictionaryEntry();
  if (entry->GetType() != DictionaryEntryUse && entry->GetName().GetLength() > 0) {
    RemoveDictionaryObject(FindObjectInDictionary(entry->GetName()));
  }
  if (!ObjectDictionary->AddTail(entry)) return false;
  owned.release();
  PutIntoScope(*this, *entry, wasRecording);
  return true;
}

CVRMLDictionaryEntry* CVRMLParser::FindObjectInDictionary(const CBasicString& name) {
  return static_cast<CVRMLDictionaryEntry*>(ObjectDictionary->FindKey(name.GetHash()));
}

// An entry that is still needed stays without its name: one that a closed separator's entry holds, and an instance
// whose body is being read, which stays a child of its scope as well.
bool CVRMLParser::RemoveDictionaryObject(CVRMLDictionaryEntry* entry) {
  if (!entry) return false;
  const bool beingRead = Contains<CVRMLDictionaryEntry>(Load->InstancesBeingRead, entry);
  if (!beingRead) RemoveDictionaryObjectFromSeparators(entry);
  if (beingRead || entry->IsChild()) {
    ObjectDictionary->ForgetKey(entry);
    entry->SetName(CBasicString());
    return true;
  }
  ObjectDictionary->Remove(entry);
  delete entry;
  return true;
}

bool CVRMLParser::RemoveDictionaryObjectFromSeparators(CVRMLDictionaryEntry* entry) {
  bool found = false;
  for (CBasicListElement* element = SeparatorStack.GoToFirst(); element; element = SeparatorStack.GoToNext()) {
    auto* separator = static_cast<CVRMLSeparator*>(element->Data);
    if (!separator->GetDictionaryEntry()) continue;
    if (separator->GetDictionaryEntry() == entry) {
      separator->SetDictionaryEntry(nullptr);
      found = true;
    } else if (entry && entry->IsChild()) {
      CVRMLDictionarySeparator* recording = AsSeparatorEntry(separator->GetDictionaryEntry());
      found = (recording && recording->RemoveChild(entry)) || found;
    }
  }
  return found;
}

void CVRMLParser::ClearObjectDictionary() {
  for (CBasicListElement* element = SeparatorStack.GoToFirst(); element; element = SeparatorStack.GoToNext()) {
    static_cast<CVRMLSeparator*>(element->Data)->SetDictionaryEntry(nullptr);
  }
  for (CBasicListElement* element = ObjectDictionary->GoToFirst(); element; element = element->Next) {
    auto* entry = static_cast<CVRMLDictionaryEntry*>(element->Data);
    // No entry's destruction may look at another one that is gone.
    if (auto* separator = AsSeparatorEntry(entry)) separator->LetGoOfChildren();
    delete entry;
  }
  ObjectDictionary->RemoveAll();
}

bool CVRMLParser::ParseUse() {
  if (!CurrentSeparator) return false;
  if (GetCurrentTokenType() == VRMLTokenUSE) Tokenize();
  return DefineUse(CBasicString(IOManager.GetCurrentTokenText()));
}

bool CVRMLParser::DefineUse(const CBasicString& name) {
  if (SkippingBlock || !CurrentSeparator || name.GetLength() == 0) return true;
  CVRMLDictionaryEntry* entry = FindObjectInDictionary(name);
  if (!entry) {
    qelvrml::NoteName(*this, VRMLNoteUnknownUse, name);
    return true;
  }
  const bool result = ServiceDictionaryObject(entry);
  if (GetDefiningObjects()) {
    std::unique_ptr<CVRMLDictionaryUse> use(new (std::nothrow) CVRMLDictionaryUse);
    if (use) use->SetName(name);
    AddDictionaryObject(use.release());
  }
  return result;
}
