#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "qelvrml/platform/brix/brixBool.h"

namespace qelvrml {
template <class T>
class ArrayWriter;
}  // namespace qelvrml

/// An array of plain values, with the semantics of a value.
///
/// Copies share their storage until one of them is written, so that copying costs the same for any size. The writing
/// forms are `operator[]` on an array that isn't constant, Edit, Append and Realloc. A reference from `operator[]`
/// stays good until the array is next changed or destroyed: from then on later copies of this array have storage of
/// their own.
///
/// It holds at most INT_MAX elements. Without memory the operations raise std::bad_alloc and leave the array as it was.
/// Arrays that share storage can be used by different threads, and several threads can read and copy one array as long
/// as nobody writes to it.
template <class T>
class brixArray1D {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
  brixArray1D() = default;
  /// `count` elements of the default value; none for a negative count.
  explicit brixArray1D(int count) { Realloc(count, brixFalse); }
  /// Shares the storage of `other`, unless references to its elements have been given out.
  brixArray1D(const brixArray1D& other) { Share(other); }
  /// Leaves `other` empty.
  brixArray1D(brixArray1D&& other) noexcept
      : Storage(std::exchange(other.Storage, nullptr)), Count(std::exchange(other.Count, 0U)) {}
  virtual ~brixArray1D() { Release(); }

  /// As the copy constructor.
  brixArray1D& operator=(const brixArray1D& other) {
    if (this != &other) {
      brixArray1D copy(other);
      Swap(copy);
    }
    return *this;
  }
  /// Leaves `other` with what this array held.
  brixArray1D& operator=(brixArray1D&& other) noexcept {
    Swap(other);
    return *this;
  }

  /// Number of elements.
  unsigned int GetSize() const { return Count; }
  /// Whether there are no elements.
  bool IsEmpty() const { return Count == 0; }

  /// For writing. The index, from 0 on, isn't checked: each caller respects the count.
  T& operator[](std::size_t index) {
    Detach();
    GetHeader().Pinned = true;
    return Storage[index];
  }
  /// For reading, likewise.
  const T& operator[](std::size_t index) const { return Storage[index]; }

  /// Whether the two have the same elements in the same place, which is known without looking at them.
  bool SharesStorage(const brixArray1D& other) const { return Storage == other.Storage && Count == other.Count; }

  /// For reading: the span is good until the array is next changed or destroyed.
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
    if (!IsOwn() || Count == GetHeader().Capacity) Grow();
    Storage[Count++] = value;
  }
  /// Gives memory back that is kept for elements to come, if it is much.
  void Trim() {
    if (IsOwn() && GetHeader().Capacity - Count > Count / SlackShare) Resize(Count);
  }

  /// Takes a copy of at most INT_MAX values, which may be a part of this array.
  void Assign(std::span<const T> values) {
    brixArray1D copy(static_cast<int>(values.size()));
    std::copy(values.begin(), values.end(), copy.Storage);
    Swap(copy);
  }

private:
  friend class qelvrml::ArrayWriter<T>;

  // In front of the elements.
  struct alignas(alignof(std::max_align_t)) Header {
    alignas(std::atomic_ref<unsigned>::required_alignment) unsigned Users;
    unsigned Capacity;
    bool Pinned;  ///< references to the elements have been given out
  };

  static constexpr unsigned LeastCapacity = sizeof(T) < 32 ? 64 / sizeof(T) : 2;
  static constexpr unsigned SlackShare = 8;  // elements for each that may stay unused

  // Larger blocks grow where they are, as a rule, and without being copied; so the memory is the C library's.
  static Header* Reallocate(void* block, unsigned capacity) {
    block = std::realloc(block, sizeof(Header) + capacity * sizeof(T));
    if (!block) throw std::bad_alloc();
    return static_cast<Header*>(block);
  }

  static T* Allocate(unsigned capacity) {
    auto* header = new (Reallocate(nullptr, capacity)) Header{1, capacity, false};
    return reinterpret_cast<T*>(header + 1);
  }

  // The count of users isn't understood.
  // NOLINTNEXTLINE(clang-analyzer-unix.Malloc, clang-analyzer-core.uninitialized.UndefReturn)
  Header& GetHeader() const { return *(reinterpret_cast<Header*>(Storage) - 1); }

  std::atomic_ref<unsigned> Users() const { return std::atomic_ref<unsigned>(GetHeader().Users); }

  bool IsOwn() const { return Storage && Users().load(std::memory_order_acquire) == 1; }

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
      Users().fetch_add(1, std::memory_order_relaxed);
    }
    Count = other.Count;
  }

  void Release() noexcept {
    // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): the count of users isn't understood
    if (Storage && Users().fetch_sub(1, std::memory_order_acq_rel) == 1) std::free(&GetHeader());
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

  // Room for `capacity` elements in a storage that is this array's own.
  void Resize(unsigned capacity) {
    Header* header = Reallocate(&GetHeader(), capacity);
    header->Capacity = capacity;
    Storage = reinterpret_cast<T*>(header + 1);
  }

  void Detach() {
    if (Storage && !IsOwn()) MoveTo(Count);
  }

  // Room for more elements.
  void Grow() {
    constexpr unsigned Most = std::numeric_limits<int>::max();
    if (Count == Most) throw std::bad_alloc();
    const unsigned capacity = std::min(std::max(LeastCapacity, Count + Count / 2), Most);
    IsOwn() ? Resize(capacity) : MoveTo(capacity);
  }

  T* Storage = nullptr;
  unsigned int Count = 0;
};
