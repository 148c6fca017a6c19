#pragma once

#include "qelvrml/foundation/CBasicList.h"
#include "qelvrml/foundation/VRMLExport.h"

/// A place in a list. It attaches itself to the list, which sends it back to the first element after every removal.
///
/// The standard walk: construct it on the list; while GetData() isn't null, work and call Next(). Without a list every
/// operation gives false, 0 or null. Without memory to attach itself it raises std::bad_alloc and has no list.
class QELVRML_EXPORT CBasicListIterator {
public:
  explicit CBasicListIterator(CBasicList* list);
  CBasicListIterator(const CBasicListIterator&) = delete;
  CBasicListIterator(CBasicListIterator&&) = delete;
  virtual ~CBasicListIterator();

  virtual CBasicList* GetList() { return List; }
  virtual void SetList(CBasicList* list);
  /// Goes to `index` and gives the word there; null, and no change, for a bad index.
  virtual void* GetAt(int index);
  /// Moves on; from behind the end it goes to the first element. The argument has no effect.
  virtual void Next(int unused);
  virtual void Next() { Next(0); }
  virtual void Previous(int unused);
  virtual void Previous() { Previous(0); }
  virtual void* GetData();
  virtual CBasicListIterator& operator=(CBasicListIterator& other);
  CBasicListIterator& operator=(CBasicListIterator&&) = delete;
  virtual int GetCount();
  virtual bool GoToFirst();
  virtual bool GoToLast();
  virtual bool AddTail(void* data);
  virtual bool AddHead(void* data);
  virtual bool InsertAfterCurrent(void* data);
  virtual bool Remove(void* value);
  virtual void* RemoveHead();
  virtual bool RemoveAll();
  virtual bool AddTailValue(void* value);
  virtual bool AddHeadValue(void* value);
  virtual bool RemoveValue(void* value);
  virtual bool RemoveAllValues();
  virtual CBasicListElement* GetCurrentElement() { return CurrentElement; }

private:
  friend class CBasicList;  // a list that goes away, or loses an element, takes its iterators off
  void Attach(CBasicList* list);
  void ForgetList();
  void StepOff(void* value);

  CBasicList* List = nullptr;
  CBasicListElement* CurrentElement = nullptr;  ///< null behind the end
};
