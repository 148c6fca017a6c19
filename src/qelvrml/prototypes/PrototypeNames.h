#pragma once

class CVRMLParser;

namespace qelvrml {

/// A word that is nothing else may name a prototype that is known by now: marks the current and the next token.
void MarkPrototypeNames(CVRMLParser& parser);

}  // namespace qelvrml
