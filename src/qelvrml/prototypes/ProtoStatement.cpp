// The PROTO and EXTERNPROTO statements.
//
//   PROTO name [ eventIn TYPE name  field TYPE name DEFAULT ... ] { body }
//   EXTERNPROTO name [ ... ] "url"

#include <algorithm>
#include <memory>
#include <new>

#include "qelvrml/files/Subfiles.h"
#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/NodeReader.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"

using qelvrml::NodeReader;

namespace {

void ParseInterfaceField(CVRMLParser& parser, CVRMLPrototype& prototype) {
  CVRMLIOManager& tokens = *parser.GetIOManager();
  parser.Tokenize();
  CBasicString type(tokens.GetCurrentTokenText());
  parser.Tokenize();
  const CBasicString name(tokens.GetCurrentTokenText());
  parser.Tokenize();
  char* text = nullptr;
  int length = 0;
  if (!tokens.GetCurrentTokenEndsField()) tokens.CaptureBlockText(&text, &length, true);
  CBasicAllocatedText owned(text);
  if (!prototype.AddField(name, type, text, length)) throw std::bad_alloc();  // the prototype outlives this load
  owned.release();
}

// Reads the entries up to the ] of the interface. Events leave no trace.
void ParseInterface(CVRMLParser& parser, CVRMLPrototype& prototype) {
  const NodeReader reader(parser);
  while (!reader.AtListEnd()) {
    switch (reader.Current()) {
      case VRMLTokenEVENTIN:
      case VRMLTokenEVENTOUT:
        for (int i = 0; i < 3; ++i) parser.Tokenize();  // the keyword, the type and the name
        break;
      case VRMLTokenEXPOSEDFIELD:
      case VRMLTokenFIELD: ParseInterfaceField(parser, prototype); break;
      default: parser.Tokenize(); break;
    }
  }
}

// The name behind the keyword; a word that means something else stays where it is, and the prototype has none.
CBasicString TakePrototypeName(CVRMLParser& parser) {
  const NodeReader reader(parser);
  if (reader.Is(VRMLTokenUnknown)) {
    CBasicString name(reader.Text());
    parser.Tokenize();
    return name;
  }
  if (parser.GetCurrentTokenDataType() == GenericTokenUserDefined) {
    qelvrml::Note(parser, VRMLNoteNamelessPrototype, reader.Text());
  }
  return {};
}

bool DeclarePrototype(CVRMLParser& parser, const CBasicString& name) {
  std::unique_ptr<CVRMLPrototype> prototype(new (std::nothrow) CVRMLPrototype);
  if (!prototype) return false;
  prototype->SetName(name);
  ParseInterface(parser, *prototype);
  parser.Tokenize();
  parser.MoveUpToInterestingToken();
  if (parser.GetCurrentTokenType() != VRMLTokenOpenBrace) return false;

  char* body = nullptr;
  int length = 0;
  parser.GetIOManager()->CaptureBlockText(&body, &length, false);
  prototype->SetBodyText(body);
  prototype->SetBodyLength(length);
  const std::uint64_t steps = static_cast<std::uint64_t>(std::max(length, 0)) * qelvrml::StepsOfACapturedByte;
  if (!qelvrml::CanMake(parser, {.Objects = 1, .Steps = steps})) return false;
  if (!parser.AddPrototypeToDictionary(prototype.get())) return false;
  prototype.release();
  qelvrml::ParserInternals::Load(parser).LastPrototype = name;
  return true;
}

}  // namespace

bool CVRMLParser::ParseProto() {
  if (SkippingBlock) return false;
  if (!CurrentSeparator) {
    qelvrml::Note(*this, VRMLNoteDroppedPrototype, IOManager.GetNextTokenText());
    return false;
  }
  const char* place = IOManager.GetCurrentPlace();
  NodeReader(*this).StepOver({VRMLTokenPROTO});
  const CBasicString name = TakePrototypeName(*this);
  MoveUpToInterestingToken();
  if (DeclarePrototype(*this, name)) return true;
  qelvrml::NoteName(*this, VRMLNoteDroppedPrototype, name, place);
  return false;
}

// The statement reads the named file in place: the prototypes that the file declares count, and its nodes become part
// of the scene. The declared name plays no part.
bool CVRMLParser::ParseExternProto() {
  if (!CurrentSeparator) return true;

  while (!GetCurrentTokenBeginType() && Tokenize()) {
  }
  if (GetCurrentTokenType() == VRMLTokenOpenBracket) SkipArray(true);
  const bool isList = GetCurrentTokenType() == VRMLTokenOpenBracket;
  if (isList) Tokenize();
  const qelvrml::FileReference file = NodeReader(*this).ReferenceHere();
  while (isList && GetCurrentTokenType() != VRMLTokenCloseBracket && Tokenize()) {
  }
  return qelvrml::ReadReferredFile(*this, file);
}
