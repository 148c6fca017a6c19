#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"

#include <algorithm>

bool CVRMLDictionarySeparator::AddChild(CVRMLDictionaryEntry* child) {
  if (!child) return false;
  child->Holders.push_back({this, nullptr});
  if (Children.AddTail(child)) {
    child->Holders.back().Place = Children.GetTailElement();
    return true;
  }
  child->Holders.pop_back();
  return false;
}

bool CVRMLDictionarySeparator::RemoveChild(CVRMLDictionaryEntry* child) {
  if (!child) return false;
  const auto isHere = [this](const auto& holder) { return holder.Separator == this; };
  const auto holder = std::find_if(child->Holders.begin(), child->Holders.end(), isHere);
  if (holder == child->Holders.end()) return false;
  Children.RemoveAt(holder->Place);
  return true;
}

void CVRMLDictionarySeparator::ChildList::RemoveAt(CBasicListElement* place) {
  std::erase_if(static_cast<CVRMLDictionaryEntry*>(place->Data)->Holders,
                [place](const auto& holder) { return holder.Place == place; });
  RemoveElement(place);
}

bool CVRMLDictionarySeparator::ChildList::Remove(void* value) {
  CBasicListElement* place = FindElement(value);
  if (place) RemoveAt(place);
  return place != nullptr;
}

void* CVRMLDictionarySeparator::ChildList::RemoveHead() {
  void* data = GetHead();
  Remove(data);
  return data;
}

bool CVRMLDictionarySeparator::ChildList::RemoveAll() {
  for (CBasicListElement* element = GoToFirst(); element; element = element->Next) {
    std::erase_if(static_cast<CVRMLDictionaryEntry*>(element->Data)->Holders,
                  [element](const auto& holder) { return holder.Place == element; });
  }
  return CKelList::RemoveAll();
}
