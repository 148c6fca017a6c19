#pragma once

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/genparse/NumberCursor.h"
#include "qelvrml/prototypes/PrototypeNames.h"

namespace qelvrml {

/// Most values stand in long lists of nothing but numbers. `take` gets a NumberCursor at the current token and takes as
/// many numbers as it can straight from the text; the last one is current behind it. False, and nothing moves, if it
/// took none: also in front of a place where progress is to be reported.
template <class Take>
bool TakeAhead(CVRMLParser& parser, Take take) {
  CVRMLIOManager& tokens = *parser.GetIOManager();
  if (tokens.GetCurrentTokenType() != VRMLTokenNumber || !tokens.IsCurrentTokenInText()) return false;
  NumberCursor numbers = tokens.GetNumbersAhead(parser.GetSkippingBlock());
  take(numbers);
  if (!numbers.GetLast()) return false;
  tokens.GoToToken(numbers.GetLast());
  MarkPrototypeNames(parser);
  parser.UpdateStatus();
  return true;
}

}  // namespace qelvrml
