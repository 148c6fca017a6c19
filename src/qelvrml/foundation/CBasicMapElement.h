#pragma once

#include "qelvrml/foundation/CBasicListElement.h"
#include "qelvrml/foundation/VRMLExport.h"

/// One key of a CBasicMap, which makes and deletes it.
class QELVRML_EXPORT CBasicMapElement {
public:
  /// Takes the three values.
  CBasicMapElement(CBasicMapElement* next, CBasicListElement* listElement, int key)
      : Next(next), ListElement(listElement), Key(key) {}
  CBasicMapElement(const CBasicMapElement&) = delete;
  CBasicMapElement& operator=(const CBasicMapElement&) = delete;
  virtual ~CBasicMapElement() = default;

  CBasicMapElement* Next;          ///< next element of the same bucket
  CBasicListElement* ListElement;  ///< the list element that holds the data
  int Key;                         ///< the hash that the element is found by
};
