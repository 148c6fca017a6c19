// Passing over nodes and blocks.

#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/Limits.h"

void CVRMLParser::SkipBlock(GenericTokenTypes open, GenericTokenTypes close, bool advance) {
  if (TrySkipByParsing()) return;
  if (GetNextTokenDataType() != close) {
    if (IOManager.FindBlockEnd(open, close)) IOManager.DecrementOffset();
    Tokenize();
  }
  Tokenize();
  if (advance) Tokenize();
}

// Behind a DEF or a USE the node is parsed with all effects off. Where it ended is remembered, so that nodes inside one
// another are parsed once for this purpose and not once for each level above them.
bool CVRMLParser::TrySkipByParsing() {
  MoveUpToInterestingToken();
  if (GetCurrentTokenBeginType() || GetNextTokenBeginType()) return false;
  const qelvrml::ScopedValue<bool> skipping(SkippingBlock, true);
  const qelvrml::ScopedValue<bool> update(AllowDictionaryUpdate, false);
  const char* begin = IOManager.GetCurrentPlace();
  const bool result = ParseBlock();
  IOManager.RememberStretch(begin, result);
  return true;
}

bool CVRMLParser::StepOverPassedStretch(bool& result) {
  if (!IOManager.StepOverStretch(result)) return false;
  MarkPrototypeNames();
  return true;
}

// Passes over a node; true if it was parsed for that, and the current token is then behind it and not on its last
// token.
bool CVRMLParser::SkipNode() {
  if (TrySkipByParsing()) return true;
  SkipBlock(false);
  return false;
}

bool CVRMLParser::PassOverNode() {
  SkipBlock(false);
  return true;
}

bool CVRMLParser::ParseInfo() {
  Tokenize();
  if (GetCurrentTokenType() == VRMLTokenOpenBracket) {
    SkipArray(false);
  } else {
    SkipBlock(false);
  }
  return true;
}

bool CVRMLParser::AtOpenSeparatorLimit() { return SeparatorStack.GetCount() >= qelvrml::MaximumOpenSeparators; }

// A node that needs one more separator than there may be.
bool CVRMLParser::PassOverUnopened() {
  if (GetCurrentTokenBeginType() || GetNextTokenBeginType()) SkipBlock(false);
  return false;
}

// Scans past one statement that is nested too deep to be read, whatever it is; moves on by at least one token.
void CVRMLParser::PassOverStatement() {
  MoveUpToInterestingToken();
  if (GetCurrentTokenType() == VRMLTokenDEF) {
    Tokenize();
    Tokenize();
  }
  const GenericTokenTypes type = GetCurrentTokenBeginType() ? GetCurrentTokenDataType() : GetNextTokenDataType();
  if (GetCurrentTokenType() == VRMLTokenUSE) {
    Tokenize();
  } else if (type == GenericTokenOpenBrace || type == GenericTokenOpenBracket || type == GenericTokenOpenParen) {
    SkipBlock(type, static_cast<GenericTokenTypes>(type + 1), false);
  }
  Tokenize();
}
