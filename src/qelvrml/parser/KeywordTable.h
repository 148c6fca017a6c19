#pragma once

#include <array>
#include <cstddef>

#include "qelvrml/platform/genparse/GenericTypes.h"

inline constexpr std::size_t VRMLKeywordCount = 142;

/// The keywords of VRML 1.0 and 2.0 with their VRMLTokenTypes values, in upper case. One table serves all parsers.
const std::array<ParserKeywordEntry, VRMLKeywordCount>& GetKeywordTable();
