#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"

void CVRMLDictionaryEntry::SetName(const CBasicString& name) {
  Name = name;
  NameHash = Name.GetHash();
}

void CVRMLDictionaryEntry::Initialize() {
  NameHash = 0;
  Type = DictionaryEntryNone;
}
