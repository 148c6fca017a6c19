#pragma once

#include <new>

namespace qelvrml {

/// The element handler (CBasicElementHandler) of values of the type `Value`, which needs `==`.
template <class Value>
bool ValueElementHandler(int operation, void** slot, void* value) {
  if (!slot) return false;
  auto* own = static_cast<Value*>(*slot);
  const auto* other = static_cast<const Value*>(value);
  switch (operation) {
    case 0: *slot = new (std::nothrow) Value(); return true;
    case 1:
      delete own;
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

}  // namespace qelvrml
