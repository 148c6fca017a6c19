#pragma once

#include <cstddef>
#include <string>

#include "qelvrml/foundation/CBasicString.h"

/// A text of the library as UTF-8; what can't be converted is replaced.
std::string ToUtf8(const CBasicString& text);

/// A text that a file or a command line gives, as one line that a terminal doesn't take for commands: bytes that aren't
/// UTF-8 and control characters are replaced.
std::string Printable(const CBasicString& text);
std::string Printable(const std::string& text);

/// How many columns a UTF-8 text takes, if its characters are of one column each.
std::size_t Columns(const std::string& text);

/// The end of a path, behind "..." if it has more columns than `width`; from a / on where there is one.
std::string EndOfPath(const std::string& path, std::size_t width);

/// Whether a name ends in `ending`, which is in lower case, in any case.
bool HasEnding(const std::string& name, const std::string& ending);
