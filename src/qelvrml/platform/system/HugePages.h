#pragma once

#include <cstddef>

namespace qelvrml {

/// Asks the system for huge pages in a long stretch of memory that hasn't been written to yet: there are 512 times
/// fewer of these to be got. Where they don't exist, or for a short stretch, nothing happens.
void PreferHugePages(void* begin, std::size_t size);

}  // namespace qelvrml
