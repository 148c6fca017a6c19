#pragma once

#include "qelvrml/parser/reading/NodeReader.h"

namespace qelvrml {

/// Reads a file that a scene refers to, beside the current file, in the place of the reference. True also for a
/// reference without a name.
bool ReadReferredFile(CVRMLParser& parser, const FileReference& reference);

}  // namespace qelvrml
