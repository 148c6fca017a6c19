// The node dispatcher: reads one statement and hands it to the parse operation of its node.

#include <array>
#include <cstdint>
#include <string_view>

#include "qelvrml/dictionary/Recording.h"
#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/parser/reading/PassingOver.h"
#include "qelvrml/scene/Scopes.h"

namespace {

using NodeParser = bool (CVRMLParser::*)();
using Row = std::pair<VRMLTokenTypes, NodeParser>;

// The parse operation of each node keyword.
constexpr auto NodeParsers = std::to_array<Row>({
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

constexpr std::array<NodeParser, VRMLTokenCount> NodeParserOfToken = [] {
  std::array<NodeParser, VRMLTokenCount> table{};
  for (const Row& row : NodeParsers) table[row.first] = row.second;
  return table;
}();

NodeParser FindNodeParser(VRMLTokenTypes type) {
  return type < NodeParserOfToken.size() ? NodeParserOfToken[type] : nullptr;
}

bool IsGeometry(VRMLTokenTypes type) {
  switch (type) {
    case VRMLTokenBOX:
    case VRMLTokenCONE:
    case VRMLTokenCUBE:
    case VRMLTokenCYLINDER:
    case VRMLTokenSPHERE:
    case VRMLTokenINDEXEDFACESET:
    case VRMLTokenINDEXEDLINESET:
    case VRMLTokenPOINTSET:
    case VRMLTokenELEVATIONGRID:
    case VRMLTokenEXTRUSION:
    case VRMLTokenTRIANGLESTRIPSET: return true;
    default: return false;
  }
}

// All but statements without braces of their own, and a Switch, which may leave them to the block around it. An info is
// a field, too.
bool EndsOnBrace(VRMLTokenTypes type) {
  switch (type) {
    case VRMLTokenINFO:
    case VRMLTokenUSE:
    case VRMLTokenPROTO:
    case VRMLTokenEXTERNPROTO:
    case VRMLTokenProtoUse:
    case VRMLTokenSWITCH: return false;
    default: return true;
  }
}

// Whether the node opens a separator; a Switch finds out by itself.
bool OpensSeparator(VRMLTokenTypes type, VRMLVersionTypes version) {
  switch (type) {
    case VRMLTokenTRANSFORM: return version == VRMLVersion20;
    case VRMLTokenSHAPE:
    case VRMLTokenLOD:
    case VRMLTokenCOLLISION: return true;
    default: return false;
  }
}

void ReadDefinedName(CVRMLParser& parser) {
  const qelvrml::NodeReader reader(parser);
  const bool defined = reader.Is(VRMLTokenDEF);
  parser.SetDefinedEntity(defined);
  if (defined) parser.Tokenize();
  parser.GetEntityName().Empty();
  if (defined && parser.GetIOManager()->GetCurrentToken().GetTokenLength() > 0) {
    parser.SetEntityName(CBasicString(reader.Text()));
    parser.Tokenize();
  }
}

// Text that is read for the first time is its own payment. Nodes that run on beyond their end are read anew from there,
// and in such nodes others do the same.
bool CanReadStatement(CVRMLParser& parser) {
  const bool again = !parser.GetSkippingBlock() && parser.GetIOManager()->IsReadAgain();
  if (!again && qelvrml::ParserInternals::Load(parser).Rereading == 0) return true;
  return qelvrml::CanMake(parser, {.Steps = again ? qelvrml::StepsOfAnotherReading : qelvrml::StepsOfAStatement});
}

bool ParseGroupKeyword(CVRMLParser& parser, int& depth) {
  if (!CanReadStatement(parser)) return qelvrml::PassOverUnpaid(parser);
  if (qelvrml::AtOpenSeparatorLimit(parser)) return qelvrml::PassOverUnopened(parser);
  if (parser.GetVersion() == VRMLVersion20) return parser.ParseGroup();
  if (!parser.ParseSeparator()) return false;
  ++depth;
  return true;
}

// Words that mean nothing here; those in front of a { are nodes. At the end of a list they lead on to its ], which is
// then stepped over like a word, so that the list goes on.
void PassOverWords(CVRMLParser& parser) {
  if (parser.GetCurrentTokenType() != VRMLTokenUnknown) return;
  CVRMLIOManager& tokens = *parser.GetIOManager();
  const char* begin = tokens.GetCurrentPlace();
  while (parser.GetCurrentTokenType() == VRMLTokenUnknown) {
    if (parser.GetNextTokenType() == VRMLTokenOpenBrace) qelvrml::NoteNode(parser, VRMLNoteUnknownNode);
    parser.Tokenize();
  }
  if (parser.GetCurrentTokenType() == VRMLTokenCloseBracket && !parser.GetSkippingBlock()) {
    qelvrml::Note(parser, VRMLNoteLostEnd, tokens.GetWordAt(begin), begin);
  }
}

// Calls a parse operation, and notes what it fails to do: to add an object, if the node is a geometry, and to end on
// the node's }, if it is to.
bool ParseWatched(CVRMLParser& parser, VRMLTokenTypes type, NodeParser parse) {
  qelvrml::LoadState& load = qelvrml::ParserInternals::Load(parser);
  CVRMLIOManager& tokens = *parser.GetIOManager();
  const std::uint64_t added = load.ObjectsAdded;
  const char* place = tokens.GetCurrentPlace();
  const bool hasScope = parser.GetCurrentSeparator() != nullptr;  // else most operations do nothing
  load.PartsLeftOut = false;
  const bool result = (parser.*parse)();
  if (parser.GetSkippingBlock()) return result;
  const auto note = [&](VRMLNoteTypes kind) {  // without a name, if a callback has given the text up
    qelvrml::Note(parser, kind, tokens.GetWordAt(place), place);
  };
  if (IsGeometry(type)) {
    load.MetGeometry = true;
    if (load.ObjectsAdded == added) note(VRMLNoteEmptyGeometry);
    if (load.PartsLeftOut) note(VRMLNoteLostParts);
  }
  if (hasScope && EndsOnBrace(type) && !qelvrml::NodeReader(parser).AtNodeEnd()) note(VRMLNoteLostEnd);
  return result;
}

bool ParseNode(CVRMLParser& parser, VRMLTokenTypes type, NodeParser parse) {
  if (!CanReadStatement(parser)) return qelvrml::PassOverUnpaid(parser);
  const bool unopened = OpensSeparator(type, parser.GetVersion()) && qelvrml::AtOpenSeparatorLimit(parser);
  if (unopened) return qelvrml::PassOverUnopened(parser);
  return ParseWatched(parser, type, parse);
}

// Handles the statement at the current token; true if it is the last one of the block.
bool Dispatch(CVRMLParser& parser, bool& result, int& depth) {
  const VRMLTokenTypes type = parser.GetCurrentTokenType();
  switch (type) {
    case VRMLTokenEndOfFile:
    case VRMLTokenNULL: return true;
    case VRMLTokenOpenBrace: parser.SkipBlock(false); return false;
    case VRMLTokenCloseBrace: result = parser.PopSeparator(); return --depth <= 0;
    case VRMLTokenOpenBracket:
      parser.Tokenize();
      qelvrml::NodeReader(parser).ParseBlocksUpToBracket();
      result = true;
      return false;
    case VRMLTokenGROUP:
    case VRMLTokenSEPARATOR:
    case VRMLTokenWWWANCHOR: result = ParseGroupKeyword(parser, depth); return false;
    default: break;
  }
  if (const NodeParser parse = FindNodeParser(type)) {
    result = ParseNode(parser, type, parse);
  } else if (type == VRMLTokenUnknown && parser.GetNextTokenType() == VRMLTokenOpenBrace) {
    qelvrml::NoteNodeAndName(parser, VRMLNoteUnknownNode);
  }
  return false;
}

}  // namespace

bool CVRMLParser::ParseBlock() {
  const qelvrml::LoadRun run(*this);
  const qelvrml::ScopedValue<int> nesting(Load->Nesting, Load->Nesting + 1);
  if (Load->Nesting > qelvrml::MaximumNesting) {
    qelvrml::Note(*this, VRMLNoteLimit, qelvrml::limits::Nesting);
    qelvrml::PassOverStatement(*this);
    return false;
  }
  bool result = true;
  if (SkippingBlock && qelvrml::StepOverPassedStretch(*this, result)) return result;

  int depth = 0;  // VRML 1.0 separators that this call has opened and not yet closed
  for (bool done = false; result && !done;) {
    PassOverWords(*this);
    ReadDefinedName(*this);
    done = Dispatch(*this, result, depth);
    done = !Tokenize() || done || depth <= 0;
  }
  return result;
}

bool CVRMLParser::GetDefiningObjects() const {
  if (!AllowDictionaryUpdate) return false;
  return DefinedEntity || qelvrml::IsRecording(*this);
}
