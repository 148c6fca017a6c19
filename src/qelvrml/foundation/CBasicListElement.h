#pragma once

#include <cstddef>
#include <new>

#include "qelvrml/foundation/BlockPool.h"
#include "qelvrml/foundation/VRMLExport.h"

/// One element of a CBasicList. Elements come from a pool; `new (std::nothrow)` gives null when there is no memory.
class QELVRML_EXPORT CBasicListElement {
public:
  CBasicListElement(CBasicListElement* previous, CBasicListElement* next, void* data)
      : Previous(previous), Next(next), Data(data) {}
  CBasicListElement(const CBasicListElement&) = delete;
  CBasicListElement& operator=(const CBasicListElement&) = delete;
  virtual ~CBasicListElement() = default;

  static void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return qelvrml::BlockPool::Allocate(size);
  }
  static void operator delete(void* block, std::size_t size) noexcept { qelvrml::BlockPool::Free(block, size); }

  CBasicListElement* Previous;  ///< null at the head
  CBasicListElement* Next;      ///< null at the tail
  void* Data;
};
