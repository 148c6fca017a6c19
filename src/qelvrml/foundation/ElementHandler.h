#pragma once

#include <new>

#include "qelvrml/foundation/BlockPool.h"

/// Stands for the type of the values that a list owns.
///
/// `operation` 0 makes a new default value and stores its address in `*slot`, null if there is no memory; 1 destroys
/// the value at `*slot` and sets `*slot` to null; 2 copies the value at `value` to the one at `*slot`; 3 tells whether
/// the two are equal. False for a null `slot`, for another operation, and in 2 and 3 for a null `value`.
using CBasicElementHandler = bool (*)(int operation, void** slot, void* value);

/// The handler of values of the type `Value`, which needs `==`. Its values come from a pool.
template <class Value>
bool ValueElementHandler(int operation, void** slot, void* value) {
  if (!slot) return false;
  auto* own = static_cast<Value*>(*slot);
  auto* other = static_cast<Value*>(value);
  switch (operation) {
    case 0: {
      void* block = qelvrml::BlockPool::Allocate(sizeof(Value));
      *slot = block ? new (block) Value() : nullptr;
      return true;
    }
    case 1:
      if (own) {
        own->~Value();
        qelvrml::BlockPool::Free(own, sizeof(Value));
      }
      *slot = nullptr;
      return true;
    case 2:
      if (!own || !other) return false;
      *own = *other;
      return true;
    case 3: return own && other && *own == *other;
    default: return false;
  }
}
