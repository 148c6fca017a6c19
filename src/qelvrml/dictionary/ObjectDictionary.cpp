// The dictionary of DEF names, and the USE statement.

#include <algorithm>
#include <memory>
#include <new>

#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"
#include "qelvrml/dictionary/CVRMLDictionaryUse.h"
#include "qelvrml/parser/CVRMLParser.h"

// The entry that nodes of the current scope are recorded into.
CVRMLDictionarySeparator* CVRMLParser::GetRecordingEntry() const {
  return CurrentSeparator && !CurrentSeparator->RecordingSuspended ? CurrentSeparator->GetDictionaryEntry() : nullptr;
}

bool CVRMLParser::AddDictionaryObject(CVRMLDictionaryEntry* entry) {
  std::unique_ptr<CVRMLDictionaryEntry> owned(entry);
  if (!entry || SkippingBlock) return false;

  const bool wasRecording = GetRecordingEntry() != nullptr;
  if (entry->GetType() != DictionaryEntryUse && entry->GetName().GetLength() > 0) {
    RemoveDictionaryObject(FindObjectInDictionary(entry->GetName()));
  }
  if (!ObjectDictionary.AddTail(entry)) return false;
  owned.release();
  if (CVRMLDictionarySeparator* recording = GetRecordingEntry()) {
    recording->AddChild(entry);
  } else if (wasRecording && entry->GetType() == DictionaryEntrySeparator) {
    CurrentSeparator->SetDictionaryEntry(static_cast<CVRMLDictionarySeparator*>(entry));
  }
  return true;
}

CVRMLDictionaryEntry* CVRMLParser::FindObjectInDictionary(const CBasicString& name) {
  return static_cast<CVRMLDictionaryEntry*>(ObjectDictionary.FindKey(name.GetHash()));
}

bool CVRMLParser::RemoveDictionaryObject(CVRMLDictionaryEntry* entry) {
  if (!entry) return false;
  RemoveDictionaryObjectFromSeparators(entry);
  if (!entry->Holders.empty()) {
    ObjectDictionary.ForgetKey(entry);
    entry->SetName(CBasicString());
    return true;
  }
  ObjectDictionary.Remove(entry);
  delete entry;
  return true;
}

bool CVRMLParser::RemoveDictionaryObjectFromSeparators(CVRMLDictionaryEntry* entry) {
  bool found = false;
  for (CBasicListElement* element = SeparatorStack.GoToFirst(); element; element = SeparatorStack.GoToNext()) {
    auto* separator = static_cast<CVRMLSeparator*>(element->Data);
    CVRMLDictionarySeparator* recording = separator->GetDictionaryEntry();
    if (!recording) continue;
    if (recording == entry) {
      separator->SetDictionaryEntry(nullptr);
      found = true;
    } else if (entry && !entry->Holders.empty()) {
      found = recording->RemoveChild(entry) || found;
    }
  }
  return found;
}

void CVRMLParser::ClearObjectDictionary() {
  for (CBasicListElement* element = SeparatorStack.GoToFirst(); element; element = SeparatorStack.GoToNext()) {
    static_cast<CVRMLSeparator*>(element->Data)->SetDictionaryEntry(nullptr);
  }
  for (CBasicListElement* element = ObjectDictionary.GoToFirst(); element; element = ObjectDictionary.GoToNext()) {
    auto* separator = dynamic_cast<CVRMLDictionarySeparator*>(static_cast<CVRMLDictionaryEntry*>(element->Data));
    if (separator) separator->RemoveChildren();
  }
  for (CBasicListElement* element = ObjectDictionary.GoToFirst(); element; element = ObjectDictionary.GoToNext()) {
    delete static_cast<CVRMLDictionaryEntry*>(element->Data);
  }
  ObjectDictionary.RemoveAll();
}

bool CVRMLParser::ParseUse() {
  if (!CurrentSeparator) return false;
  if (GetCurrentTokenType() == VRMLTokenUSE) Tokenize();
  return DefineUse(CBasicString(IOManager.GetCurrentTokenText()));
}

bool CVRMLParser::DefineUse(const CBasicString& name) {
  if (SkippingBlock || !CurrentSeparator || name.GetLength() == 0) return true;
  CVRMLDictionaryEntry* entry = FindObjectInDictionary(name);
  if (!entry) return true;
  const bool result = ServiceDictionaryObject(entry);
  if (GetDefiningObjects()) {
    auto* use = new (std::nothrow) CVRMLDictionaryUse;
    if (use) use->SetName(name);
    AddDictionaryObject(use);
  }
  return result;
}
