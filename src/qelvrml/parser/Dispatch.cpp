// The node dispatcher: reads one statement and hands it to the parse operation of its node.

#include <algorithm>
#include <array>

#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/Limits.h"

/// The parse operation of each node keyword; null for every other token.
struct CVRMLParser::NodeTable {
  using Row = std::pair<VRMLTokenTypes, NodeParser>;

  static constexpr auto Rows = std::to_array<Row>({
      {VRMLTokenUSE, &CVRMLParser::ParseUse},
      {VRMLTokenASCIITEXT, &CVRMLParser::ParseAsciiText},
      {VRMLTokenBOX, &CVRMLParser::ParseBox},
      {VRMLTokenCALLBACK, &CVRMLParser::ParseCallback},
      {VRMLTokenCOLOR, &CVRMLParser::ParseColor3},
      {VRMLTokenCONE, &CVRMLParser::ParseCone},
      {VRMLTokenCOORDINATE, &CVRMLParser::ParseCoordinate3},
      {VRMLTokenCUBE, &CVRMLParser::ParseCube},
      {VRMLTokenCYLINDER, &CVRMLParser::ParseCylinder},
      {VRMLTokenDIRECTIONALLIGHT, &CVRMLParser::ParseDirectionalLight},
      {VRMLTokenFONTSTYLE, &CVRMLParser::ParseFontStyle},
      {VRMLTokenINDEXEDFACESET, &CVRMLParser::ParseIndexedSet},
      {VRMLTokenINDEXEDLINESET, &CVRMLParser::ParseIndexedSet},
      {VRMLTokenINFO, &CVRMLParser::ParseInfo},
      {VRMLTokenMATERIAL, &CVRMLParser::ParseMaterial},
      {VRMLTokenMATERIALBINDING, &CVRMLParser::ParseBinding},
      {VRMLTokenNORMALBINDING, &CVRMLParser::ParseBinding},
      {VRMLTokenMATRIXTRANSFORM, &CVRMLParser::ParseMatrixTransform},
      {VRMLTokenNORMAL, &CVRMLParser::ParseNormal},
      {VRMLTokenORTHOGRAPHICCAMERA, &CVRMLParser::ParseOrthographicCamera},
      {VRMLTokenPERSPECTIVECAMERA, &CVRMLParser::ParsePerspectiveCamera},
      {VRMLTokenPOINTLIGHT, &CVRMLParser::ParsePointLight},
      {VRMLTokenROTATION, &CVRMLParser::ParseRotation},
      {VRMLTokenSCALE, &CVRMLParser::ParseScale},
      {VRMLTokenSHAPEHINTS, &CVRMLParser::ParseShapeHints},
      {VRMLTokenSPHERE, &CVRMLParser::ParseSphere},
      {VRMLTokenSPOTLIGHT, &CVRMLParser::ParseSpotLight},
      {VRMLTokenTRANSFORM, &CVRMLParser::ParseTransform},
      {VRMLTokenTRANSLATION, &CVRMLParser::ParseTranslation},
      {VRMLTokenAPPEARANCE, &CVRMLParser::ParseAppearance},
      {VRMLTokenCOLLISION, &CVRMLParser::ParseCollision},
      {VRMLTokenEXTERNPROTO, &CVRMLParser::ParseExternProto},
      {VRMLTokenINLINE, &CVRMLParser::ParseWWWInline},
      {VRMLTokenLOD, &CVRMLParser::ParseLevelOfDetail},
      {VRMLTokenPROTO, &CVRMLParser::ParseProto},
      {VRMLTokenSHAPE, &CVRMLParser::ParseShape},
      {VRMLTokenSWITCH, &CVRMLParser::ParseSwitch},
      {VRMLTokenProtoUse, &CVRMLParser::ParseProtoUse},
      {VRMLTokenELEVATIONGRID, &CVRMLParser::ParseElevationGrid},
      {VRMLTokenEXTRUSION, &CVRMLParser::ParseExtrusion},
      {VRMLTokenPOINTSET, &CVRMLParser::ParsePointSet},
      {VRMLTokenTRIANGLESTRIPSET, &CVRMLParser::ParseTriangleStripSet},
      {VRMLTokenIMAGETEXTURE, &CVRMLParser::ParseImageTexture},
      {VRMLTokenPIXELTEXTURE, &CVRMLParser::ParsePixelTexture},
      {VRMLTokenTEXTURECOORDINATE, &CVRMLParser::ParseTextureCoordinate},
      {VRMLTokenTEXTURETRANSFORM, &CVRMLParser::ParseTextureTransform},
  });

  static constexpr std::array<NodeParser, VRMLTokenCount> ByToken = [] {
    std::array<NodeParser, VRMLTokenCount> table{};
    for (const Row& row : Rows) table[row.first] = row.second;
    return table;
  }();

  static NodeParser Find(VRMLTokenTypes type) { return type < ByToken.size() ? ByToken[type] : nullptr; }
};

namespace {

bool MayOpenSeparator(VRMLTokenTypes type) {
  constexpr std::array Openers = {VRMLTokenGROUP, VRMLTokenSEPARATOR, VRMLTokenWWWANCHOR, VRMLTokenTRANSFORM,
                                  VRMLTokenSHAPE, VRMLTokenSWITCH,    VRMLTokenLOD,       VRMLTokenCOLLISION};
  return std::find(Openers.begin(), Openers.end(), type) != Openers.end();
}

}  // namespace

bool CVRMLParser::ParseBlock() {
  const qelvrml::ScopedValue<int> nesting(Nesting, Nesting + 1);
  if (Nesting > qelvrml::MaximumNesting) {
    PassOverStatement();
    return false;
  }
  bool result = true;
  if (SkippingBlock && StepOverPassedStretch(result)) return result;

  int depth = 0;  // VRML 1.0 separators that this call has opened and not yet closed
  for (bool done = false; result && !done;) {
    MoveUpToInterestingToken();
    ReadDefinedName();
    done = Dispatch(result, depth);
    done = !Tokenize() || done || depth <= 0;
  }
  return result;
}

void CVRMLParser::ReadDefinedName() {
  SetDefinedEntity(GetCurrentTokenType() == VRMLTokenDEF);
  if (DefinedEntity) Tokenize();
  EntityName.Empty();
  if (DefinedEntity && IOManager.GetCurrentToken().GetTokenLength() > 0) {
    SetEntityName(CBasicString(IOManager.GetCurrentTokenText()));
    Tokenize();
  }
}

// Handles the statement at the current token; true if it is the last one of the block.
bool CVRMLParser::Dispatch(bool& result, int& depth) {
  const VRMLTokenTypes type = GetCurrentTokenType();
  switch (type) {
    case VRMLTokenEndOfFile:
    case VRMLTokenNULL: return true;
    case VRMLTokenOpenBrace: SkipBlock(false); return false;
    case VRMLTokenCloseBrace: result = PopSeparator(); return --depth <= 0;
    case VRMLTokenOpenBracket:
      Tokenize();
      ParseBlocksUpToBracket();
      result = true;
      return false;
    case VRMLTokenGROUP:
    case VRMLTokenSEPARATOR:
    case VRMLTokenWWWANCHOR: result = ParseGroupKeyword(depth); return false;
    default: break;
  }
  if (const NodeParser parse = NodeTable::Find(type)) {
    result = MayOpenSeparator(type) && AtOpenSeparatorLimit() ? PassOverUnopened() : (this->*parse)();
  }
  return false;
}

bool CVRMLParser::ParseGroupKeyword(int& depth) {
  if (AtOpenSeparatorLimit()) return PassOverUnopened();
  if (GetVersion() == VRMLVersion20) return ParseGroup();
  if (!ParseSeparator()) return false;
  ++depth;
  return true;
}

bool CVRMLParser::ParseBlocksUpToBracket() {
  bool result = false;
  while (GetCurrentTokenType() != VRMLTokenCloseBracket && GetCurrentTokenType() != VRMLTokenEndOfFile) {
    result = ParseBlock() || result;
  }
  return result;
}

bool CVRMLParser::GetDefiningObjects() const {
  if (!AllowDictionaryUpdate) return false;
  return DefinedEntity || GetRecordingEntry() != nullptr;
}
