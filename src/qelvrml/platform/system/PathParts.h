#pragma once

#include <string_view>

namespace qelvrml {

/// The directory of a path, up to and including the last "/" or "\"; empty without one.
std::u16string_view DirectoryOf(std::u16string_view path);
/// The last component of a path, behind the last "/" or "\", without a drive such as "C:".
std::u16string_view LastComponentOf(std::u16string_view path);

}  // namespace qelvrml
