#pragma once

#include "qelvrml/foundation/VRMLExport.h"

/// One element of a CBasicList, which makes and deletes it.
class QELVRML_EXPORT CBasicListElement {
public:
  /// Takes the three values; the neighbours aren't told.
  CBasicListElement(CBasicListElement* previous, CBasicListElement* next, void* data)
      : Previous(previous), Next(next), Data(data) {}
  CBasicListElement(const CBasicListElement&) = delete;
  CBasicListElement& operator=(const CBasicListElement&) = delete;
  virtual ~CBasicListElement() = default;

  CBasicListElement* Previous;  ///< null at the head
  CBasicListElement* Next;      ///< null at the tail
  void* Data;                   ///< the word, or the address of the list's own value; never null in a list
};
