#pragma once

#include <memory>

#include "qelvrml/foundation/CBasicElementHandler.h"
#include "qelvrml/foundation/CBasicListElement.h"
#include "qelvrml/foundation/VRMLExport.h"

class CBasicListIterator;

/// A doubly linked list of pointer-sized data words, which may own what it holds.
///
/// Without an element handler the words belong to whoever added them. With a handler the value operations make, compare
/// and destroy copies that belong to the list. A word of null can't be stored. Every destructor leaves the words alone:
/// an owner of values calls RemoveAllValues first.
///
/// The list knows its iterators: any removal sends all of them back to the first element. AddTail, AddHead, InsertAfter
/// and the removal of a known element take constant time, a look-up by value walks the list, and access by position
/// costs one walk after a change. The order of the virtual operations is fixed: hosts that derive from the classes of
/// lists share it. Not for use by two threads at a time, not even for reading.
class QELVRML_EXPORT CBasicList {
public:
  CBasicList() = default;
  CBasicList(const CBasicList&) = delete;
  CBasicList& operator=(const CBasicList&) = delete;
  virtual ~CBasicList();

  /// The word at `index`, whose element becomes the current one; null for a bad index.
  virtual void* GetAt(int index);
  virtual int GetCount() { return Count; }
  virtual CBasicListElement* GoToFirst();
  virtual CBasicListElement* GetTailElement() { return Tail; }
  /// Moves the current element on and gives it; null, with no change, without a current element.
  virtual CBasicListElement* GoToNext();
  virtual CBasicListElement* GoToPrevious();
  /// First element whose value, or without a handler whose word, equals `value`; moves the current element.
  virtual CBasicListElement* FindElement(void* value);
  /// These three give false for null data and when there is no memory.
  virtual bool AddTail(void* data);
  virtual bool AddHead(void* data);
  virtual bool InsertAfter(CBasicListElement* element, void* data);
  /// Removes the first element that FindElement finds; the data stays.
  virtual bool Remove(void* value);
  /// Removes the first element and gives its word; null for an empty list.
  virtual void* RemoveHead();
  /// Removes all elements; the data stays. False if the list was empty.
  virtual bool RemoveAll();
  virtual void* GetHead() { return Head ? Head->Data : nullptr; }
  virtual void* GetTail() { return Tail ? Tail->Data : nullptr; }
  virtual CBasicListElement* GetCurrentElement() { return CurrentElement; }
  /// Null for a bad index, and when there is no memory.
  virtual CBasicListElement* GetElementAt(int index);
  virtual int GetIteratorCount();
  virtual CBasicElementHandler GetElementHandler() { return ElementHandler; }
  /// Empties the list, with its values if it has a handler, and installs `handler`.
  virtual void SetElementHandler(CBasicElementHandler handler);
  /// These two add a copy of the value; false without a handler and when a step fails.
  virtual bool AddTailValue(void* value);
  virtual bool AddHeadValue(void* value);
  virtual bool RemoveValue(void* value);
  /// Destroys all values and removes all elements; false, and no change, without a handler or elements.
  virtual bool RemoveAllValues();
  virtual bool AddTailAny(void* data);
  virtual bool RemoveAny(void* data);
  virtual void SetIntegerElements();
  virtual void SetDoubleElements();
  virtual void SetStringElements();
  /// False for null, and when there is no memory.
  virtual bool AttachIterator(CBasicListIterator* iterator);
  virtual bool DetachIterator(CBasicListIterator* iterator);
  virtual bool DetachAllIterators();
  virtual void SetCurrentElement(CBasicListElement* element) { CurrentElement = element; }

protected:
  CBasicListElement* GetHeadElement() const { return Head; }
  /// Takes `element` out of the list and deletes it; iterators are told.
  void RemoveElement(CBasicListElement* element);

private:
  CBasicListElement* Link(CBasicListElement* previous, CBasicListElement* next, void* data);
  void Unlink(CBasicListElement* element);
  void* MakeCopy(void* value);
  void DestroyValue(void* data);
  void TakeIteratorsOff(const CBasicListElement* element);
  void SendIteratorsToFirst();

  CBasicListElement* Head = nullptr;
  CBasicListElement* Tail = nullptr;
  CBasicListElement* CurrentElement = nullptr;
  int Count = 0;
  CBasicElementHandler ElementHandler = nullptr;
  std::unique_ptr<CBasicList> Iterators;        ///< attached iterators, made at the first attachment
  std::unique_ptr<CBasicListElement*[]> Index;  ///< elements by position; dropped by any change
};
