#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"

#include <algorithm>

bool CVRMLDictionarySeparator::AddChild(CVRMLDictionaryEntry* child) {
  if (!child) return false;
  child->Holders.push_back(this);
  if (Children.AddTail(child)) return true;
  child->Holders.pop_back();
  return false;
}

bool CVRMLDictionarySeparator::RemoveChild(CVRMLDictionaryEntry* child) {
  if (!child || !Children.Remove(child)) return false;
  const auto holder = std::find(child->Holders.begin(), child->Holders.end(), this);
  if (holder != child->Holders.end()) child->Holders.erase(holder);
  return true;
}

void CVRMLDictionarySeparator::RemoveChildren() {
  for (CBasicListElement* element = Children.GoToFirst(); element; element = Children.GoToNext()) {
    auto& holders = static_cast<CVRMLDictionaryEntry*>(element->Data)->Holders;
    holders.erase(std::remove(holders.begin(), holders.end(), this), holders.end());
  }
  Children.RemoveAll();
}
