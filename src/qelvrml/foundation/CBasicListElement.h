#pragma once

#include "qelvrml/foundation/VRMLExport.h"

/// One element of a CBasicList.
class QELVRML_EXPORT CBasicListElement {
public:
  CBasicListElement(CBasicListElement* previous, CBasicListElement* next, void* data)
      : Previous(previous), Next(next), Data(data) {}
  CBasicListElement(const CBasicListElement&) = delete;
  CBasicListElement& operator=(const CBasicListElement&) = delete;
  virtual ~CBasicListElement() = default;

  CBasicListElement* Previous;  ///< null at the head
  CBasicListElement* Next;      ///< null at the tail
  void* Data;
};
