#pragma once

#include <cstddef>
#include <new>

#include "qelvrml/foundation/BlockPool.h"
#include "qelvrml/foundation/CBasicListElement.h"
#include "qelvrml/foundation/VRMLExport.h"

/// One key of a CBasicMap. Elements come from a pool; `new (std::nothrow)` gives null when there is no memory.
class QELVRML_EXPORT CBasicMapElement {
public:
  CBasicMapElement(CBasicMapElement* next, CBasicListElement* listElement, int key)
      : Next(next), ListElement(listElement), Key(key) {}
  CBasicMapElement(const CBasicMapElement&) = delete;
  CBasicMapElement& operator=(const CBasicMapElement&) = delete;
  virtual ~CBasicMapElement() = default;

  static void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return qelvrml::BlockPool::Allocate(size);
  }
  static void operator delete(void* block, std::size_t size) noexcept { qelvrml::BlockPool::Free(block, size); }

  CBasicMapElement* Next;          ///< next element of the same bucket
  CBasicListElement* ListElement;  ///< the list element that holds the data
  int Key;
};
