#pragma once

#include <string_view>

namespace qelvrml {

/// Reads `word` as a number: decimal with an optional sign, or 0x hexadecimal with an optional sign. False, and no
/// change, unless the whole word is one. What is above the range of `double` gives the largest finite value with its
/// sign, what is below it 0. Never depends on the locale.
bool ReadNumber(std::string_view word, double& value);

}  // namespace qelvrml
