#include "qelvrml/foundation/CBasicListIterator.h"

#include <new>

CBasicListIterator::CBasicListIterator(CBasicList* list) {
  Attach(list);
  CBasicListIterator::GoToFirst();
}

CBasicListIterator::~CBasicListIterator() {
  if (List) List->DetachIterator(this);
}

void CBasicListIterator::SetList(CBasicList* list) {
  if (List) List->DetachIterator(this);
  ForgetList();
  Attach(list);
  GoToFirst();
}

void* CBasicListIterator::GetAt(int index) {
  CBasicListElement* element = List ? List->GetElementAt(index) : nullptr;
  if (!element) return nullptr;
  CurrentElement = element;
  return element->Data;
}

void CBasicListIterator::Next(int /*unused*/) {
  if (CurrentElement) {
    CurrentElement = CurrentElement->Next;
  } else {
    GoToFirst();
  }
}

void CBasicListIterator::Previous(int /*unused*/) {
  if (CurrentElement) {
    CurrentElement = CurrentElement->Previous;
  } else {
    GoToLast();
  }
}

void* CBasicListIterator::GetData() { return List && CurrentElement ? CurrentElement->Data : nullptr; }

CBasicListIterator& CBasicListIterator::operator=(CBasicListIterator& other) {
  if (this == &other) return *this;
  SetList(nullptr);
  SetList(other.List);
  CurrentElement = other.CurrentElement;
  return *this;
}

int CBasicListIterator::GetCount() { return List ? List->GetCount() : 0; }

bool CBasicListIterator::GoToFirst() {
  CurrentElement = List ? List->GoToFirst() : nullptr;
  return CurrentElement != nullptr;
}

bool CBasicListIterator::GoToLast() {
  CurrentElement = List ? List->GetTailElement() : nullptr;
  return CurrentElement != nullptr;
}

bool CBasicListIterator::AddTail(void* data) { return List && List->AddTail(data); }
bool CBasicListIterator::AddHead(void* data) { return List && List->AddHead(data); }

bool CBasicListIterator::InsertAfterCurrent(void* data) {
  if (!List) return false;
  if (!CurrentElement) GoToFirst();
  return List->InsertAfter(CurrentElement, data);
}

bool CBasicListIterator::Remove(void* value) {
  if (!List) return false;
  StepOff(value);
  return List->Remove(value);
}

void* CBasicListIterator::RemoveHead() { return List ? List->RemoveHead() : nullptr; }
bool CBasicListIterator::RemoveAll() { return List && List->RemoveAll(); }
bool CBasicListIterator::AddTailValue(void* value) { return List && List->AddTailValue(value); }
bool CBasicListIterator::AddHeadValue(void* value) { return List && List->AddHeadValue(value); }

bool CBasicListIterator::RemoveValue(void* value) {
  if (!List || !List->GetElementHandler()) return false;
  StepOff(value);
  return List->RemoveValue(value);
}

bool CBasicListIterator::RemoveAllValues() { return List && List->RemoveAllValues(); }

void CBasicListIterator::Attach(CBasicList* list) {
  if (list && !list->AttachIterator(this)) throw std::bad_alloc();
  List = list;
}

void CBasicListIterator::ForgetList() {
  List = nullptr;
  CurrentElement = nullptr;
}

void CBasicListIterator::StepOff(void* value) {
  if (!CurrentElement || List->FindElement(value) != CurrentElement) return;
  CurrentElement = CurrentElement->Next ? CurrentElement->Next : CurrentElement->Previous;
}
