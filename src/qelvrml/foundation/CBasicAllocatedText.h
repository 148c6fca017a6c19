#pragma once

#include <cstdlib>
#include <memory>

/// Frees a text from the system's allocator.
struct CBasicTextDeleter {
  /// Null does no harm.
  void operator()(char* text) const { std::free(text); }
};

/// Owns a text from the system's allocator, without a terminator.
using CBasicAllocatedText = std::unique_ptr<char, CBasicTextDeleter>;
