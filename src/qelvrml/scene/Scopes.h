#pragma once

#include "qelvrml/parser/CVRMLParser.h"

namespace qelvrml {

/// Whether the load at hand may open no further separator.
bool AtOpenSeparatorLimit(CVRMLParser& parser);

/// Opens the scope of a node that reads its children itself. Its DEF name has then gone to the scope's group and entry,
/// and isn't that of its first child.
bool OpenNodeScope(CVRMLParser& parser);

/// The DEF name at hand is used up, or belongs to text that was passed over: what follows has none.
void ForgetDefinedName(CVRMLParser& parser);

/// Objects that are made from here on bear no name, though the node at hand stands behind its DEF still: the fields of
/// a set, and the geometry of a Shape, don't take the name of the node around them.
void LeaveObjectsUnnamed(CVRMLParser& parser);

}  // namespace qelvrml
