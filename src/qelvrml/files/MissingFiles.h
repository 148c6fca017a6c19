#pragma once

#include "qelvrml/parser/CVRMLParser.h"

namespace qelvrml {

/// Counts one more file that the scene asks for; false if it has asked for all that it may.
bool AskForFile(CVRMLParser& parser);

/// Puts the path of a file that couldn't be opened on the list for the host, once in a load and as long as it has room.
void NoteMissingFile(CVRMLParser& parser, const CBasicString& path);

}  // namespace qelvrml
