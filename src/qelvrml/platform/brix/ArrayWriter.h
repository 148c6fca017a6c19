#pragma once

#include <cstddef>
#include <span>

#include "qelvrml/platform/brix/brixArray1D.h"

namespace qelvrml {

/// Adds elements to an array one behind the other. Meanwhile nothing else looks at the array, which has all of them at
/// the end of this object.
template <class T>
class ArrayWriter {
public:
  explicit ArrayWriter(brixArray1D<T>& array) : Array(array) {
    Array.Detach();
    Take();
  }
  ArrayWriter(const ArrayWriter&) = delete;
  ArrayWriter& operator=(const ArrayWriter&) = delete;
  ~ArrayWriter() { Array.Count = GetCount(); }

  void Add(const T& value) {
    if (Place == End) MakeRoom();
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage, clang-analyzer-core.NullDereference): there is room now
    *Place++ = value;
  }
  /// How many elements the array has by now.
  unsigned GetCount() const { return static_cast<unsigned>(Place - Array.Storage); }
  /// An element that the array has by now.
  T& operator[](std::size_t index) { return Array.Storage[index]; }

  /// Makes `array` one of so many elements without values, each of which the caller writes.
  static std::span<T> Allocate(brixArray1D<T>& array, unsigned count) {
    array.Release();
    array.Storage = brixArray1D<T>::Allocate(count);
    array.Count = count;
    return array.Edit();
  }

private:
  void MakeRoom() {
    Array.Count = GetCount();
    Array.Grow();
    Take();
  }

  void Take() {
    Place = Array.Storage + Array.Count;
    End = Array.Storage ? Array.Storage + Array.GetHeader().Capacity : Place;
  }

  brixArray1D<T>& Array;
  T* Place = nullptr;
  T* End = nullptr;
};

}  // namespace qelvrml
