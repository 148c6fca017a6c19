// The Switch node. The shape of its text decides how it is read:
//
//   Switch { whichChoice N choice [ ... ] }   child N alone, in the enclosing scope
//   Switch { choice NODE }                    that node
//   Switch { ... }                            a separator with all its children

#include "qelvrml/foundation/CutToInt.h"
#include "qelvrml/parser/CVRMLParser.h"

bool CVRMLParser::ParseSwitch() {
  CGenericIOState start;
  SaveIOState(start);
  StepToOpenBrace();
  int chosen = -1;
  bool hasIndex = false;
  if (!AtNodeEnd()) Tokenize();
  if (GetCurrentTokenType() == VRMLTokenWHICHCHOICE || GetCurrentTokenType() == VRMLTokenWHICHCHILD) {
    double value = 0.0;
    Tokenize();
    hasIndex = TakeNumberHere(value);
    if (hasIndex) chosen = qelvrml::CutToInt(value);
  }
  Tokenize();
  if (GetCurrentTokenType() != VRMLTokenCHOICE) {
    RestoreIOState(start);
    return ParseSeparator();
  }
  Tokenize();
  if (!hasIndex || GetCurrentTokenType() != VRMLTokenOpenBracket) return ParseBlock();
  ParseChosenChild(chosen);
  return true;
}

// Reads the list of children and ends on the node's }.
void CVRMLParser::ParseChosenChild(int chosen) {
  Tokenize();
  for (int i = 0; GetCurrentTokenType() != VRMLTokenCloseBracket && GetCurrentTokenType() != VRMLTokenEndOfFile; ++i) {
    if (i == chosen) {
      ParseBlock();
    } else {
      SkipBlock(true);
    }
  }
  Tokenize();
}
