// Nodes of VRML 2.0 that hold other nodes, and the level of detail of both versions. Each opens a scope, reads its
// children by ParseBlock, one call for each, and closes the scope.

#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/parser/reading/PassingOver.h"
#include "qelvrml/scene/Scopes.h"

using qelvrml::NodeReader;

namespace {

// Handles the token at hand of a Collision; false if it has already stepped behind the field's value.
bool ParseCollisionField(CVRMLParser& parser, bool& result) {
  NodeReader reader(parser);
  const VRMLTokenTypes keyword = reader.Current();
  switch (keyword) {
    case VRMLTokenCOLLIDE: parser.Tokenize(); return true;
    case VRMLTokenADDCHILDREN:
    case VRMLTokenREMOVECHILDREN:
    case VRMLTokenPROXY: {
      parser.Tokenize();
      if (reader.Is(VRMLTokenNULL)) return true;
      // A proxy isn't part of the model. Behind one that was parsed there is nothing left to step over.
      if (qelvrml::TryPassOverByParsing(parser)) return keyword != VRMLTokenPROXY;
      parser.SkipBlock(false);
      return true;
    }
    case VRMLTokenCHILDREN:
      parser.Tokenize();
      if (!parser.GetCurrentTokenBeginType()) {
        result = parser.ParseBlock();
        return false;
      }
      parser.Tokenize();
      result = reader.ParseBlocksUpToBracket() || result;
      return true;
    default: return true;
  }
}

}  // namespace

bool CVRMLParser::ParseGroup() {
  NodeReader reader(*this);
  reader.StepToOpenBrace();
  if (!qelvrml::OpenNodeScope(*this)) return false;

  bool result = false;
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    if (keyword == VRMLTokenCHILDREN) reader.ParseNodeOrList(result);
  });
  PopSeparator();
  return result;
}

bool CVRMLParser::ParseAppearance() {
  if (!CurrentSeparator) return false;

  bool result = false;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenAPPEARANCE});
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    const bool isField =
        keyword == VRMLTokenMATERIAL || keyword == VRMLTokenTEXTURE || keyword == VRMLTokenTEXTURETRANSFORM;
    if (isField) result = ParseBlock();
  });
  return result;
}

// All levels enter the model: this library doesn't pick one.
bool CVRMLParser::ParseLevelOfDetail() {
  NodeReader reader(*this);
  reader.StepToOpenBrace();
  bool result = qelvrml::OpenNodeScope(*this);
  if (GetVersion() == VRMLVersion10) {
    if (GetCurrentTokenBeginType()) Tokenize();
    while (!reader.AtNodeEnd()) ParseBlock();
    result = true;
  } else {
    reader.WhileInNode([&](VRMLTokenTypes keyword) {
      brixFloatPoint center;
      brixDoubleArray ranges;
      Tokenize();
      if (keyword == VRMLTokenCENTER) ParsePoint(center);
      if (keyword == VRMLTokenRANGE) ParseFloatArray(ranges);
      if (keyword == VRMLTokenLEVEL) reader.ParseNodeOrList(result);
    });
  }
  PopSeparator();
  return result;
}

bool CVRMLParser::ParseCollision() {
  if (!CurrentSeparator) return false;

  bool result = false;
  NodeReader(*this).StepOver({VRMLTokenOpenBrace, VRMLTokenCOLLISION});
  qelvrml::OpenNodeScope(*this);
  while (GetCurrentTokenType() != VRMLTokenCloseBrace) {
    NodeReader(*this).LookForNode();
    if (ParseCollisionField(*this, result) && !Tokenize()) break;
  }
  PopSeparator();
  return result;
}
