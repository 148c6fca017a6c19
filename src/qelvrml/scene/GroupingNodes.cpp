// Nodes of VRML 2.0 that hold other nodes, and the level of detail of both versions. Each opens a scope, reads its
// children by ParseBlock, one call for each, and closes the scope.

#include "qelvrml/parser/CVRMLParser.h"

void CVRMLParser::StepToOpenBrace() {
  while (GetCurrentTokenType() != VRMLTokenOpenBrace && Tokenize()) {
  }
}

// A node, whose result counts, or a list of nodes in [ ], of which one that gives true is enough. Ends behind the node,
// or on the ].
void CVRMLParser::ParseNodeOrList(bool& result) {
  if (GetCurrentTokenType() != VRMLTokenOpenBracket) {
    result = ParseBlock();
    return;
  }
  Tokenize();
  result = ParseBlocksUpToBracket() || result;
}

bool CVRMLParser::ParseGroup() {
  StepToOpenBrace();
  if (!DefineNodeSeparator()) return false;

  bool result = false;
  WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    if (keyword == VRMLTokenCHILDREN) ParseNodeOrList(result);
  });
  PopSeparator();
  return result;
}

bool CVRMLParser::ParseAppearance() {
  if (!CurrentSeparator) return false;

  bool result = false;
  StepOver({VRMLTokenOpenBrace, VRMLTokenAPPEARANCE});
  WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    const bool isField =
        keyword == VRMLTokenMATERIAL || keyword == VRMLTokenTEXTURE || keyword == VRMLTokenTEXTURETRANSFORM;
    if (isField) result = ParseBlock();
  });
  return result;
}

// All levels enter the model: this library doesn't pick one.
bool CVRMLParser::ParseLevelOfDetail() {
  StepToOpenBrace();
  bool result = DefineNodeSeparator();
  if (GetVersion() == VRMLVersion10) {
    if (GetCurrentTokenBeginType()) Tokenize();
    while (!AtNodeEnd()) ParseBlock();
    result = true;
  } else {
    WhileInNode([&](VRMLTokenTypes keyword) {
      brixFloatPoint center;
      brixDoubleArray ranges;
      Tokenize();
      if (keyword == VRMLTokenCENTER) ParsePoint(center);
      if (keyword == VRMLTokenRANGE) ParseFloatArray(ranges);
      if (keyword == VRMLTokenLEVEL) ParseNodeOrList(result);
    });
  }
  PopSeparator();
  return result;
}

bool CVRMLParser::ParseCollision() {
  if (!CurrentSeparator) return false;

  bool result = false;
  StepOver({VRMLTokenOpenBrace, VRMLTokenCOLLISION});
  DefineNodeSeparator();
  while (GetCurrentTokenType() != VRMLTokenCloseBrace) {
    if (ParseCollisionField(result) && !Tokenize()) break;
  }
  PopSeparator();
  return result;
}

// Handles the token at hand; false if it has already stepped behind the field's value.
bool CVRMLParser::ParseCollisionField(bool& result) {
  const VRMLTokenTypes keyword = GetCurrentTokenType();
  switch (keyword) {
    case VRMLTokenCOLLIDE: Tokenize(); return true;
    case VRMLTokenADDCHILDREN:
    case VRMLTokenREMOVECHILDREN:
    case VRMLTokenPROXY: {
      Tokenize();
      if (GetCurrentTokenType() == VRMLTokenNULL) return true;
      const bool parsed = SkipNode();  // a proxy isn't part of the model
      return !parsed || keyword != VRMLTokenPROXY;
    }
    case VRMLTokenCHILDREN:
      Tokenize();
      if (!GetCurrentTokenBeginType()) {
        result = ParseBlock();
        return false;
      }
      Tokenize();
      result = ParseBlocksUpToBracket() || result;
      return true;
    default: return true;
  }
}
