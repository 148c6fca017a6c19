// The Switch node. The shape of its text decides how it is read:
//
//   Switch { whichChoice N choice [ ... ] }   child N alone, in the enclosing scope
//   Switch { whichChoice N choice NODE }      that node, whatever N is
//   Switch { ... }                            a separator with all its children

#include "qelvrml/foundation/Numbers.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/parser/reading/PassingOver.h"
#include "qelvrml/scene/Scopes.h"

using qelvrml::NodeReader;

namespace {

// Reads the list of children and ends on the node's }. False if none of them was chosen.
bool ParseChosenChild(CVRMLParser& parser, int chosen) {
  parser.Tokenize();
  const NodeReader reader(parser);
  int count = 0;
  for (; !reader.AtListEnd(); ++count) {
    const bool lost = reader.Is(VRMLTokenCloseBrace) && !parser.GetSkippingBlock();  // words have led over the ]
    if (lost) qelvrml::Note(parser, VRMLNoteLostEnd, "choice");
    if (count == chosen) {
      parser.ParseBlock();
    } else {
      parser.SkipBlock(true);
    }
  }
  parser.Tokenize();
  return chosen >= 0 && chosen < count;
}

}  // namespace

bool CVRMLParser::ParseSwitch() {
  const qelvrml::ReadingMark start(*this);
  const char* place = IOManager.GetCurrentPlace();
  NodeReader reader(*this);
  reader.StepToOpenBrace();
  int chosen = -1;
  bool hasIndex = false;
  if (!reader.AtNodeEnd()) Tokenize();
  if (reader.Is(VRMLTokenWHICHCHOICE) || reader.Is(VRMLTokenWHICHCHILD)) {
    double value = 0.0;
    Tokenize();
    hasIndex = reader.TakeNumberHere(value);
    if (hasIndex) chosen = qelvrml::CutToInt(value);
  }
  Tokenize();
  if (!reader.Is(VRMLTokenCHOICE)) {
    start.GoBackTo(*this);
    return qelvrml::AtOpenSeparatorLimit(*this) ? qelvrml::PassOverUnopened(*this) : ParseSeparator();
  }
  Tokenize();
  if (!hasIndex || !reader.Is(VRMLTokenOpenBracket)) return ParseBlock();
  if (!ParseChosenChild(*this, chosen) && !SkippingBlock) {
    qelvrml::Note(*this, VRMLNoteNothingChosen, "Switch", place);
  }
  return true;
}
