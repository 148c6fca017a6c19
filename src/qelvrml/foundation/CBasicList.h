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
  /// An empty list without an element handler.
  CBasicList() = default;
  CBasicList(const CBasicList&) = delete;
  CBasicList& operator=(const CBasicList&) = delete;
  virtual ~CBasicList();

  /// The word at `index`, from 0 on, whose element becomes the current one; null for a bad index, and when there is no
  /// memory.
  virtual void* GetAt(int index);
  /// Number of elements.
  virtual int GetCount() { return Count; }
  /// Makes the first element the current one and gives it; null for an empty list.
  virtual CBasicListElement* GoToFirst();
  /// The last element; null for an empty list. The current element stays.
  virtual CBasicListElement* GetTailElement() { return Tail; }
  /// Moves the current element on, or back, and gives it; behind the end there is none. Null, with no change, without a
  /// current element.
  /// @{
  virtual CBasicListElement* GoToNext();
  virtual CBasicListElement* GoToPrevious();
  /// @}
  /// First element whose value, or without a handler whose word, equals `value`; it becomes the current
  /// one. Null, and no current element, if there is none; null, with no change, for a null `value`.
  virtual CBasicListElement* FindElement(void* value);
  /// Adds a word at the end, at the beginning or behind an element of this list. False for null and when there is no
  /// memory.
  /// @{
  virtual bool AddTail(void* data);
  virtual bool AddHead(void* data);
  virtual bool InsertAfter(CBasicListElement* element, void* data);
  /// @}
  /// Removes the first element that FindElement finds; the data stays. False if there is none.
  virtual bool Remove(void* value);
  /// Removes the first element and gives its word; null for an empty list.
  virtual void* RemoveHead();
  /// Removes all elements; the data stays. False if the list was empty.
  virtual bool RemoveAll();
  /// The first and the last word; null for an empty list.
  /// @{
  virtual void* GetHead() { return Head ? Head->Data : nullptr; }
  virtual void* GetTail() { return Tail ? Tail->Data : nullptr; }
  /// @}
  /// The list's own cursor, which walks and searches move; null without one. A removal moves it off the element, to the
  /// one before.
  virtual CBasicListElement* GetCurrentElement() { return CurrentElement; }
  /// The element at `index`, from 0 on; null for a bad index, and when there is no memory. The first call after a
  /// change walks the list and leaves it without a current element.
  virtual CBasicListElement* GetElementAt(int index);
  /// Number of attached iterators.
  virtual int GetIteratorCount();
  /// Null if the list doesn't own what it holds.
  virtual CBasicElementHandler GetElementHandler() { return ElementHandler; }
  /// Empties the list, with its values if it has a handler, and installs `handler`; null for none.
  virtual void SetElementHandler(CBasicElementHandler handler);
  /// Adds a copy of the value at the end or at the beginning; false without a handler, for null and when there is no
  /// memory.
  /// @{
  virtual bool AddTailValue(void* value);
  virtual bool AddHeadValue(void* value);
  /// @}
  /// Removes and destroys the first value that equals `value`. False without a handler and if there is none.
  virtual bool RemoveValue(void* value);
  /// Destroys all values and removes all elements; false, and no change, without a handler or elements.
  virtual bool RemoveAllValues();
  /// Adds or removes a value, or where that gives false the word itself.
  /// @{
  virtual bool AddTailAny(void* data);
  virtual bool RemoveAny(void* data);
  /// @}
  /// Empties the list, as SetElementHandler does, and makes it own values of the type `int`, `double` or CBasicString.
  /// @{
  virtual void SetIntegerElements();
  virtual void SetDoubleElements();
  virtual void SetStringElements();
  /// @}
  /// Lets the list know an iterator, which attaches itself as a rule. False for null, and when there is no memory.
  virtual bool AttachIterator(CBasicListIterator* iterator);
  /// Forgets one iterator, or all; they aren't told of changes any more. False if there was none.
  /// @{
  virtual bool DetachIterator(CBasicListIterator* iterator);
  virtual bool DetachAllIterators();
  /// @}
  /// Moves the cursor to an element of this list; null for none.
  virtual void SetCurrentElement(CBasicListElement* element) { CurrentElement = element; }

protected:
  /// The first element; null for an empty list. The current element stays.
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
