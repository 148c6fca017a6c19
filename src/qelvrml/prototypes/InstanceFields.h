#pragma once

#include <functional>
#include <string_view>

#include "qelvrml/parser/CVRMLNote.h"
#include "qelvrml/platform/brixex/CKelList.h"

class CVRMLPrototype;

namespace qelvrml {

/// Gets the name of a field that an instance gives in vain, and why.
using VainFieldHandler = std::function<void(VRMLNoteTypes kind, std::string_view field)>;

/// Reads the fields of an instance from its captured text and adds those of the prototype to the list, which owns them.
/// False for a null text or a negative length.
bool ReadInstanceFields(CVRMLPrototype& prototype, const char* text, int length, CKelList& list,
                        const VainFieldHandler& inVain);

}  // namespace qelvrml
