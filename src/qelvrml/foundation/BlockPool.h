#pragma once

#include <cstddef>

#include "qelvrml/foundation/VRMLExport.h"

namespace qelvrml {

/// Gives small blocks of memory out of large chunks. A freed block is given out again; chunks stay with the process.
///
/// Any thread may allocate, and free what another one allocated. A thread keeps a stock of free blocks of its own and
/// exchanges them in batches with a common stock. Under the address sanitizer each block is an allocation of its own,
/// so that misuse of list elements and values is seen.
class QELVRML_EXPORT BlockPool {
public:
  /// Largest block that the pool serves, in bytes; what is larger comes from the system's allocator.
  static constexpr std::size_t LargestBlock = 64;

  /// Null if there is no memory. The block is aligned for any scalar type.
  static void* Allocate(std::size_t size) noexcept;
  /// `size` is the one that `block` was allocated with; a null block is ignored.
  static void Free(void* block, std::size_t size) noexcept;
};

}  // namespace qelvrml
