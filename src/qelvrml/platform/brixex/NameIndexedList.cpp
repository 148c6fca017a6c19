#include "qelvrml/platform/brixex/NameIndexedList.h"

#include <new>

namespace qelvrml {

NameIndexedList& NameIndexedList::operator=(const NameIndexedList& other) {
  if (this != &other) RemoveAll();
  return *this;
}

void* NameIndexedList::FindKey(std::uint32_t key) {
  if (OutOfDate) Rebuild();
  const auto found = ByKey.find(key);
  return found == ByKey.end() ? nullptr : found->second.First->Data;
}

void NameIndexedList::ForgetKey(void* data) {
  const CBasicListElement* element = FindElement(data);
  const std::optional<std::uint32_t> key = KeyOf(data);
  if (element && key) Leave(ByKey, *key, element);
}

CBasicListElement* NameIndexedList::FindElement(void* value) {
  if (OutOfDate || !IndexesWords) {
    IndexesWords = true;
    Rebuild();
  }
  const auto found = ByData.find(value);
  return found == ByData.end() ? nullptr : found->second.First;
}

bool NameIndexedList::AddTail(void* data) {
  if (!CKelList::AddTail(data)) return false;
  try {
    Enter(GetTailElement());
  } catch (const std::bad_alloc&) {
    OutOfDate = true;  // the word is in the list; a search will find room for the indexes, or not
  }
  return true;
}

bool NameIndexedList::AddHead(void* data) {
  OutOfDate = true;
  return CKelList::AddHead(data);
}

bool NameIndexedList::InsertAfter(CBasicListElement* element, void* data) {
  OutOfDate = true;
  return CKelList::InsertAfter(element, data);
}

bool NameIndexedList::Remove(void* value) {
  CBasicListElement* element = FindElement(value);
  if (!element) return false;
  ForgetElement(element);
  RemoveElement(element);
  return true;
}

void* NameIndexedList::RemoveHead() {
  if (GetHeadElement()) ForgetElement(GetHeadElement());
  return CKelList::RemoveHead();
}

bool NameIndexedList::RemoveValue(void* value) {
  const bool removed = CKelList::RemoveValue(value);
  OutOfDate = OutOfDate || removed;
  return removed;
}

bool NameIndexedList::RemoveAll() {
  ByKey.clear();
  ByData.clear();
  OutOfDate = false;
  IndexesWords = false;
  return CKelList::RemoveAll();
}

void NameIndexedList::ForgetElement(const CBasicListElement* element) {
  if (OutOfDate) return;
  if (const std::optional<std::uint32_t> key = KeyOf(element->Data)) Leave(ByKey, *key, element);
  Leave(ByData, element->Data, element);
}

template <class Map, class Key>
void NameIndexedList::Leave(Map& index, const Key& key, const CBasicListElement* element) {
  const auto found = index.find(key);
  if (found == index.end()) return;
  if (--found->second.Count == 0) {
    index.erase(found);
  } else if (found->second.First == element) {
    OutOfDate = true;
  }
}

void NameIndexedList::Rebuild() {
  ByKey.clear();
  ByData.clear();
  OutOfDate = true;
  CBasicListElement* place = GetCurrentElement();
  for (CBasicListElement* element = GoToFirst(); element; element = element->Next) Enter(element);
  SetCurrentElement(place);
  OutOfDate = false;
}

void NameIndexedList::Enter(CBasicListElement* element) {
  const auto enter = [element](Place& place) {
    if (place.Count++ == 0) place.First = element;
  };
  if (IndexesWords) enter(ByData[element->Data]);
  if (const std::optional<std::uint32_t> key = KeyOf(element->Data)) enter(ByKey[*key]);
}

}  // namespace qelvrml
