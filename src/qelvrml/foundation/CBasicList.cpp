#include "qelvrml/foundation/CBasicList.h"

#include <limits>
#include <new>

#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/ValueElementHandler.h"

CBasicList::~CBasicList() {
  CBasicList::RemoveAll();
  if (!Iterators) return;
  for (CBasicListElement* element = Iterators->Head; element; element = element->Next) {
    static_cast<CBasicListIterator*>(element->Data)->ForgetList();
  }
}

void* CBasicList::GetAt(int index) {
  CBasicListElement* element = GetElementAt(index);
  if (!element) return nullptr;
  SetCurrentElement(element);
  return element->Data;
}

CBasicListElement* CBasicList::GoToFirst() { return CurrentElement = Head; }

CBasicListElement* CBasicList::GoToNext() {
  if (!CurrentElement) return nullptr;
  return CurrentElement = CurrentElement->Next;
}

CBasicListElement* CBasicList::GoToPrevious() {
  if (!CurrentElement) return nullptr;
  return CurrentElement = CurrentElement->Previous;
}

CBasicListElement* CBasicList::FindElement(void* value) {
  if (!value) return nullptr;
  for (CBasicListElement* element = GoToFirst(); element; element = GoToNext()) {
    void* data = element->Data;
    if (ElementHandler ? ElementHandler(3, &data, value) : data == value) return element;
  }
  return nullptr;
}

bool CBasicList::AddTail(void* data) { return Link(Tail, nullptr, data) != nullptr; }
bool CBasicList::AddHead(void* data) { return Link(nullptr, Head, data) != nullptr; }

bool CBasicList::InsertAfter(CBasicListElement* element, void* data) {
  return element && Link(element, element->Next, data) != nullptr;
}

bool CBasicList::Remove(void* value) {
  CBasicListElement* element = FindElement(value);
  if (!element) return false;
  RemoveElement(element);
  return true;
}

void* CBasicList::RemoveHead() {
  if (!Head) return nullptr;
  void* data = Head->Data;
  RemoveElement(Head);
  return data;
}

bool CBasicList::RemoveAll() {
  if (!Head) return false;
  Index.reset();
  TakeIteratorsOff(nullptr);
  while (Head) {
    CBasicListElement* next = Head->Next;
    delete Head;
    Head = next;
  }
  Tail = nullptr;
  CurrentElement = nullptr;
  Count = 0;
  SendIteratorsToFirst();
  return true;
}

CBasicListElement* CBasicList::GetElementAt(int index) {
  if (index < 0 || index >= GetCount()) return nullptr;
  if (!Index) {
    Index.reset(new (std::nothrow) CBasicListElement*[static_cast<std::size_t>(Count)]);
    if (!Index) return nullptr;
    std::size_t position = 0;
    for (CBasicListElement* element = GoToFirst(); element; element = GoToNext()) Index[position++] = element;
  }
  return Index[static_cast<std::size_t>(index)];
}

int CBasicList::GetIteratorCount() { return Iterators ? Iterators->GetCount() : 0; }

void CBasicList::SetElementHandler(CBasicElementHandler handler) {
  if (ElementHandler) {
    RemoveAllValues();
  } else {
    RemoveAll();
  }
  ElementHandler = handler;
}

bool CBasicList::AddTailValue(void* value) {
  void* copy = MakeCopy(value);
  if (copy && AddTail(copy)) return true;
  DestroyValue(copy);
  return false;
}

bool CBasicList::AddHeadValue(void* value) {
  void* copy = MakeCopy(value);
  if (copy && AddHead(copy)) return true;
  DestroyValue(copy);
  return false;
}

bool CBasicList::RemoveValue(void* value) {
  if (!ElementHandler) return false;
  CBasicListElement* element = FindElement(value);
  if (!element || !ElementHandler(1, &element->Data, nullptr)) return false;
  RemoveElement(element);
  return true;
}

bool CBasicList::RemoveAllValues() {
  if (!ElementHandler || !Head) return false;
  bool destroyed = false;
  for (CBasicListElement* element = Head; element; element = element->Next) {
    destroyed = ElementHandler(1, &element->Data, nullptr) || destroyed;
  }
  RemoveAll();
  return destroyed;
}

bool CBasicList::AddTailAny(void* data) { return AddTailValue(data) || AddTail(data); }
bool CBasicList::RemoveAny(void* data) { return RemoveValue(data) || Remove(data); }

void CBasicList::SetIntegerElements() { SetElementHandler(qelvrml::ValueElementHandler<int>); }
void CBasicList::SetDoubleElements() { SetElementHandler(qelvrml::ValueElementHandler<double>); }
void CBasicList::SetStringElements() { SetElementHandler(qelvrml::ValueElementHandler<CBasicString>); }

bool CBasicList::AttachIterator(CBasicListIterator* iterator) {
  if (!iterator) return false;
  if (!Iterators) Iterators.reset(new (std::nothrow) CBasicList);
  return Iterators && Iterators->AddTail(iterator);
}

bool CBasicList::DetachIterator(CBasicListIterator* iterator) {
  return iterator && Iterators && Iterators->Remove(iterator);
}
bool CBasicList::DetachAllIterators() { return Iterators && Iterators->RemoveAll(); }

void CBasicList::RemoveElement(CBasicListElement* element) {
  TakeIteratorsOff(element);
  Unlink(element);
  delete element;
  SendIteratorsToFirst();
}

CBasicListElement* CBasicList::Link(CBasicListElement* previous, CBasicListElement* next, void* data) {
  if (!data || Count == std::numeric_limits<int>::max()) return nullptr;
  auto* element = new (std::nothrow) CBasicListElement(previous, next, data);
  if (!element) return nullptr;
  Index.reset();
  (previous ? previous->Next : Head) = element;
  (next ? next->Previous : Tail) = element;
  ++Count;
  return element;
}

void CBasicList::Unlink(CBasicListElement* element) {
  Index.reset();
  (element->Previous ? element->Previous->Next : Head) = element->Next;
  (element->Next ? element->Next->Previous : Tail) = element->Previous;
  if (CurrentElement == element) CurrentElement = element->Previous;
  --Count;
}

void* CBasicList::MakeCopy(void* value) {
  if (!ElementHandler) return nullptr;
  void* copy = nullptr;
  if (!ElementHandler(0, &copy, nullptr) || !copy) return nullptr;
  try {
    if (ElementHandler(2, &copy, value)) return copy;
  } catch (const std::bad_alloc&) {
    // as if the handler had refused
  }
  DestroyValue(copy);
  return nullptr;
}

void CBasicList::DestroyValue(void* data) {
  if (data) ElementHandler(1, &data, nullptr);
}

// Leaves no iterator on `element`, or for null on any element.
void CBasicList::TakeIteratorsOff(const CBasicListElement* element) {
  for (CBasicListElement* each = Iterators ? Iterators->Head : nullptr; each; each = each->Next) {
    auto* iterator = static_cast<CBasicListIterator*>(each->Data);
    if (!element || iterator->CurrentElement == element) iterator->CurrentElement = nullptr;
  }
}

void CBasicList::SendIteratorsToFirst() {
  if (GetIteratorCount() == 0) return;
  try {
    // Iterators may detach themselves meanwhile, which sends the walk back to the first.
    for (CBasicListIterator walk(Iterators.get()); void* iterator = walk.GetData(); walk.Next(0)) {
      static_cast<CBasicListIterator*>(iterator)->GoToFirst();
    }
  } catch (const std::bad_alloc&) {
    // no memory for the walk: the iterators stay where they are, none of them on a removed element
  }
}
