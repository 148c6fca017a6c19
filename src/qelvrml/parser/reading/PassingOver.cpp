#include "qelvrml/parser/reading/PassingOver.h"

#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/prototypes/PrototypeNames.h"

namespace qelvrml {
namespace {

bool IsBeginClass(GenericTokenTypes type) {
  return type == GenericTokenOpenBrace || type == GenericTokenOpenBracket || type == GenericTokenOpenParen;
}

GenericTokenTypes ClosingClass(GenericTokenTypes open) { return static_cast<GenericTokenTypes>(open + 1); }

bool OpensBlock(const CVRMLParser& parser) {
  return parser.GetCurrentTokenBeginType() || parser.GetNextTokenBeginType();
}

}  // namespace

// Nodes inside one another are parsed anew at each level, for the text that is passed over can close scopes; where each
// stretch ends is noted all the same, for the time when a load has passed over too much.
bool TryPassOverByParsing(CVRMLParser& parser) {
  parser.MoveUpToInterestingToken();
  if (OpensBlock(parser)) return false;
  LoadState& load = ParserInternals::Load(parser);
  const ScopedValue<bool> skipping(ParserInternals::SkippingBlock(parser), true);
  const ScopedValue<bool> update(ParserInternals::AllowDictionaryUpdate(parser), false);
  if (load.PassingOver == 0) ++load.OutermostPass;
  const ScopedValue<int> passing(load.PassingOver, load.PassingOver + 1);
  CVRMLIOManager& tokens = *parser.GetIOManager();
  const char* begin = tokens.GetCurrentPlace();
  const bool result = parser.ParseBlock();
  load.PassedOver += tokens.RememberStretch(begin, load.OutermostPass, result);
  return true;
}

bool StepOverPassedStretch(CVRMLParser& parser, bool& result) {
  const LoadState& load = ParserInternals::Load(parser);
  if (load.PassingOver == 0 || load.PassedOver <= PassedOverAnew) return false;
  if (!parser.GetIOManager()->StepOverStretch(load.OutermostPass, result)) return false;
  MarkPrototypeNames(parser);
  return true;
}

bool PassOverNode(CVRMLParser& parser) {
  NoteNodeAndName(parser, VRMLNoteDroppedNode);
  if (OpensBlock(parser)) parser.SkipBlock(false);
  return true;
}

bool PassOverUnopened(CVRMLParser& parser) {
  if (OpensBlock(parser)) parser.SkipBlock(false);
  return false;
}

void GoBack(CVRMLParser& parser, const ReadingMark& place) {
  CVRMLIOManager& tokens = *parser.GetIOManager();
  const bool passing = parser.GetSkippingBlock();  // what is passed over hasn't been read yet
  if (!passing) tokens.NoteHowFarWasRead();
  place.GoBackTo(parser);
  if (!passing) PayForSteps(parser, tokens.GetBytesReadAhead() * StepsOfAnExpandedByte);
}

bool PassOverUnpaid(CVRMLParser& parser) {
  CVRMLIOManager& tokens = *parser.GetIOManager();
  if (!tokens.IsReadAgain()) return PassOverUnopened(parser);
  tokens.GoBehindWhatWasRead();
  MarkPrototypeNames(parser);
  return false;
}

void PassOverStatement(CVRMLParser& parser) {
  const NodeReader reader(parser);
  parser.MoveUpToInterestingToken();
  if (reader.Is(VRMLTokenDEF)) {
    parser.Tokenize();
    parser.Tokenize();
  }
  const GenericTokenTypes type =
      parser.GetCurrentTokenBeginType() ? parser.GetCurrentTokenDataType() : parser.GetNextTokenDataType();
  if (reader.Is(VRMLTokenUSE)) {
    parser.Tokenize();
  } else if (IsBeginClass(type)) {
    parser.SkipBlock(type, ClosingClass(type), false);
  }
  parser.Tokenize();
}

}  // namespace qelvrml

void CVRMLParser::SkipBlock(GenericTokenTypes open, GenericTokenTypes close, bool advance) {
  if (qelvrml::TryPassOverByParsing(*this)) return;
  if (GetNextTokenDataType() != close) {
    if (IOManager.FindBlockEnd(open, close)) IOManager.DecrementOffset();
    Tokenize();
  }
  Tokenize();
  if (advance) Tokenize();
}

bool CVRMLParser::ParseAsciiText() { return qelvrml::PassOverNode(*this); }
bool CVRMLParser::ParseCallback() { return qelvrml::PassOverNode(*this); }
bool CVRMLParser::ParseFontStyle() { return qelvrml::PassOverNode(*this); }
bool CVRMLParser::ParseShapeHints() { return qelvrml::PassOverNode(*this); }
bool CVRMLParser::ParseOrthographicCamera() { return qelvrml::PassOverNode(*this); }
bool CVRMLParser::ParsePerspectiveCamera() { return qelvrml::PassOverNode(*this); }
bool CVRMLParser::ParseDirectionalLight() { return qelvrml::PassOverNode(*this); }
bool CVRMLParser::ParsePointLight() { return qelvrml::PassOverNode(*this); }
bool CVRMLParser::ParseSpotLight() { return qelvrml::PassOverNode(*this); }

bool CVRMLParser::ParseInfo() {
  qelvrml::NoteNodeAndName(*this, VRMLNoteDroppedNode);
  Tokenize();
  if (GetCurrentTokenType() == VRMLTokenOpenBracket) {
    SkipArray(false);
  } else {
    SkipBlock(false);
  }
  return true;
}
