#pragma once

#include <string>

#include "qelvrml/parser/CVRMLNote.h"

/// Name of a kind in JSON, such as "unknownNode".
std::string KindName(VRMLNoteTypes kind);
/// A note of a load of the file at `mainFile`, for people: "Text: passed over, 22 times, first in line 14".
std::string Sentence(const CVRMLNote& note, const std::string& mainFile);
