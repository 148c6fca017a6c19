#pragma once

#include "qelvrml/parser/CVRMLParser.h"

namespace qelvrml {

/// Whether the world has a texture: the points of its faces aren't shared then.
bool HasTextures(const CVRMLParser& parser);

}  // namespace qelvrml
