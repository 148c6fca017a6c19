// The Shape node. Its text is read twice, so that the appearance is in the scope before the geometry is read, whatever
// the order of the two in the file.

#include "qelvrml/parser/CVRMLParser.h"

bool CVRMLParser::ParseShape() {
  StepToOpenBrace();
  bool result = DefineNodeSeparator();
  CGenericIOState start;
  SaveIOState(start);
  WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    if (keyword == VRMLTokenAPPEARANCE || keyword == VRMLTokenTEXTURETRANSFORM) result = ParseBlock();
    if (keyword == VRMLTokenGEOMETRY) SkipBlock(true);
  });
  RestoreIOState(start);
  WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    if (keyword == VRMLTokenAPPEARANCE || keyword == VRMLTokenTEXTURETRANSFORM) SkipBlock(true);
    if (keyword == VRMLTokenGEOMETRY) result = ParseShapeGeometry();
  });
  PopSeparator();
  return result;
}

// A geometry with a DEF has a scope of its own, whose group bears the name; the name is then read once more for the
// objects.
bool CVRMLParser::ParseShapeGeometry() {
  EntityName.Empty();
  const bool opened = GetCurrentTokenType() == VRMLTokenDEF && OpenGeometryScope();
  const bool result = ParseBlock();
  if (opened) PopSeparator();
  return result;
}

bool CVRMLParser::OpenGeometryScope() {
  CGenericIOState state;
  SaveIOState(state);
  Tokenize();
  bool opened = false;
  if (IOManager.GetCurrentToken().GetTokenLength() > 0) {
    SetEntityName(CBasicString(IOManager.GetCurrentTokenText()));
    opened = DefineNodeSeparator();
  }
  RestoreIOState(state);
  return opened;
}
