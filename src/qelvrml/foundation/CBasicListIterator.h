#pragma once

#include "qelvrml/foundation/CBasicList.h"
#include "qelvrml/foundation/VRMLExport.h"

/// A place in a list. It attaches itself to the list, which sends it back to the first element after every removal.
///
/// The standard walk: construct it on the list; while GetData() isn't null, work and call Next(). Without a list every
/// operation gives false, 0 or null. Without memory to attach itself it raises std::bad_alloc and has no list. A list
/// that goes away leaves its iterators without one.
class QELVRML_EXPORT CBasicListIterator {
public:
  /// At the first element of the list, which may be null.
  explicit CBasicListIterator(CBasicList* list);
  CBasicListIterator(const CBasicListIterator&) = delete;
  CBasicListIterator(CBasicListIterator&&) = delete;
  virtual ~CBasicListIterator();

  /// The list, which isn't owned; null if there is none.
  virtual CBasicList* GetList() { return List; }
  /// Leaves the list for another one, or for none, and goes to its first element.
  virtual void SetList(CBasicList* list);
  /// Goes to `index`, from 0 on, and gives the word there; null, and no change, for a bad index.
  virtual void* GetAt(int index);
  /// Moves on, or back; where there is no place, to the first element, or to the last. The argument has no effect.
  /// @{
  virtual void Next(int unused);
  virtual void Next() { Next(0); }
  virtual void Previous(int unused);
  virtual void Previous() { Previous(0); }
  /// @}
  /// The word at the place; null without one, which is how a walk ends.
  virtual void* GetData();
  /// Takes the list and the place of `other`.
  virtual CBasicListIterator& operator=(CBasicListIterator& other);
  CBasicListIterator& operator=(CBasicListIterator&&) = delete;
  /// Number of elements of the list.
  virtual int GetCount();
  /// Goes to the first or to the last element; false, and no place, if there is none.
  /// @{
  virtual bool GoToFirst();
  virtual bool GoToLast();
  /// @}
  /// Does to the list what its operation of that name does, and gives its result.
  /// @{
  virtual bool AddTail(void* data);
  virtual bool AddHead(void* data);
  /// @}
  /// Adds a word behind the place, or behind the first element where there is none. False for null, for an empty list
  /// and when there is no memory.
  virtual bool InsertAfterCurrent(void* data);
  /// As the list's operation of that name. A removal sends this iterator to the first element, too.
  /// @{
  virtual bool Remove(void* value);
  virtual void* RemoveHead();
  virtual bool RemoveAll();
  virtual bool AddTailValue(void* value);
  virtual bool AddHeadValue(void* value);
  virtual bool RemoveValue(void* value);
  virtual bool RemoveAllValues();
  /// @}
  /// The place itself; null behind the end.
  virtual CBasicListElement* GetCurrentElement() { return CurrentElement; }

private:
  friend class CBasicList;  // a list that goes away, or loses an element, takes its iterators off
  void Attach(CBasicList* list);
  void ForgetList();
  void StepOff(void* value);

  CBasicList* List = nullptr;
  CBasicListElement* CurrentElement = nullptr;  ///< null behind the end
};
