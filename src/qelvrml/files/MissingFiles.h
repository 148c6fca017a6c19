#pragma once

#include "qelvrml/parser/CVRMLParser.h"

namespace qelvrml {

/// Puts the path of a file that couldn't be opened on the list for the host, once in a load and as long as it has room.
void NoteMissingFile(CVRMLParser& parser, const CBasicString& path);

}  // namespace qelvrml
