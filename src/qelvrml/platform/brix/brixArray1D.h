#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <limits>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "qelvrml/platform/brix/brixBool.h"

/// An array of plain values, with the semantics of a value.
///
/// Copies share their storage until one of them is written, so that copying costs the same for any size. The writing
/// forms are `operator[]` on an array that isn't constant, Edit, Append and Realloc. A reference from `operator[]`
/// stays good until the array is next changed or destroyed: from then on later copies of this array have storage of
/// their own.
template <class T>
class brixArray1D {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
  brixArray1D() = default;
  /// `count` elements of the default value; none for a negative count.
  explicit brixArray1D(int count) { Realloc(count, brixFalse); }
  brixArray1D(const brixArray1D& other) { Share(other); }
  brixArray1D(brixArray1D&& other) noexcept
      : Storage(std::exchange(other.Storage, nullptr)), Count(std::exchange(other.Count, 0U)) {}
  virtual ~brixArray1D() { Release(); }

  brixArray1D& operator=(const brixArray1D& other) {
    if (this != &other) {
      brixArray1D copy(other);
      Swap(copy);
    }
    return *this;
  }
  brixArray1D& operator=(brixArray1D&& other) noexcept {
    Swap(other);
    return *this;
  }

  unsigned int GetSize() const { return Count; }
  bool IsEmpty() const { return Count == 0; }

  /// No check of the index: each caller respects the count.
  T& operator[](std::size_t index) {
    Detach();
    GetHeader().Pinned = true;
    return Storage[index];
  }
  const T& operator[](std::size_t index) const { return Storage[index]; }

  bool SharesStorage(const brixArray1D& other) const { return Storage == other.Storage && Count == other.Count; }

  std::span<const T> View() const { return {Storage, Count}; }
  /// For writing at once: the span is good until the array is next copied or changed.
  std::span<T> Edit() {
    Detach();
    return {Storage, Count};
  }

  /// Equal count: nothing. Larger: new storage, with `keep` the old elements in front, the rest of the default value.
  /// Smaller but not 0: the count is lowered. 0 or less: the storage is given up.
  void Realloc(int count, brixBool keep) {
    const auto wanted = static_cast<unsigned>(std::max(count, 0));
    if (wanted == 0) {
      Release();
    } else if (wanted < Count) {
      Count = wanted;
    } else if (wanted > Count) {
      brixArray1D grown;
      grown.Storage = Allocate(wanted);
      grown.Count = wanted;
      const unsigned kept = keep == brixTrue ? Count : 0;
      std::copy_n(Storage, kept, grown.Storage);
      std::fill(grown.Storage + kept, grown.Storage + wanted, T());
      Swap(grown);
    }
  }

  /// Adds one element behind the last, in constant time on average. It may be one of this array's own.
  void Append(T value) {
    if (Count == std::numeric_limits<int>::max()) throw std::bad_alloc();
    if (!Storage || GetHeader().Users.load(std::memory_order_acquire) != 1 || Count == GetHeader().Capacity) Grow();
    Storage[Count++] = value;
  }

  void Assign(std::span<const T> values) {
    brixArray1D copy(static_cast<int>(values.size()));
    std::copy(values.begin(), values.end(), copy.Storage);
    Swap(copy);
  }

private:
  struct alignas(alignof(std::max_align_t)) Header {
    std::atomic<unsigned> Users = 1;
    unsigned Capacity = 0;
    bool Pinned = false;  ///< references to the elements have been given out
  };

  static T* Allocate(unsigned capacity) {
    void* block = ::operator new(sizeof(Header) + capacity * sizeof(T));
    auto* header = new (block) Header;
    header->Capacity = capacity;
    return reinterpret_cast<T*>(header + 1);
  }

  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): the count of users isn't understood
  Header& GetHeader() const { return *(reinterpret_cast<Header*>(Storage) - 1); }

  void Swap(brixArray1D& other) noexcept {
    std::swap(Storage, other.Storage);
    std::swap(Count, other.Count);
  }

  void Share(const brixArray1D& other) {
    if (other.Count == 0) return;
    if (other.GetHeader().Pinned) {
      Storage = Allocate(other.Count);
      std::copy_n(other.Storage, other.Count, Storage);
    } else {
      Storage = other.Storage;
      GetHeader().Users.fetch_add(1, std::memory_order_relaxed);
    }
    Count = other.Count;
  }

  void Release() noexcept {
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): the count of users isn't understood
    if (Storage && GetHeader().Users.fetch_sub(1, std::memory_order_acq_rel) == 1) {
      ::operator delete(static_cast<void*>(&GetHeader()));
    }
    Storage = nullptr;
    Count = 0;
  }

  // Makes the storage this array's own, with room for `capacity` elements.
  void MoveTo(unsigned capacity) {
    brixArray1D own;
    own.Storage = Allocate(capacity);
    own.Count = Count;
    std::copy_n(Storage, Count, own.Storage);
    Swap(own);
  }

  void Detach() {
    if (Storage && GetHeader().Users.load(std::memory_order_acquire) != 1) MoveTo(Count);
  }

  void Grow() { MoveTo(std::max(16U, Count + Count / 2)); }

  T* Storage = nullptr;
  unsigned int Count = 0;
};
