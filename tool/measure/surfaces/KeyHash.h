#pragma once

#include <cstddef>
#include <cstdint>

/// Spreads keys over a hash table. It differs from run to run, so that no file can choose keys that fall together; what
/// is computed mustn't depend on the order in such a table.
struct KeyHash {
  std::size_t operator()(std::uint64_t key) const;
};
