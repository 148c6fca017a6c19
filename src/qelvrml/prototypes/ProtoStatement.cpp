// The PROTO and EXTERNPROTO statements.
//
//   PROTO name [ eventIn TYPE name  field TYPE name DEFAULT ... ] { body }
//   EXTERNPROTO name [ ... ] "url"

#include <memory>
#include <new>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/prototypes/CVRMLPrototype.h"

bool CVRMLParser::ParseProto() {
  if (!CurrentSeparator || SkippingBlock) return false;

  StepOver({VRMLTokenPROTO});
  CBasicString name;
  if (GetCurrentTokenType() == VRMLTokenUnknown) {
    name = CBasicString(IOManager.GetCurrentTokenText());
    Tokenize();
  }
  MoveUpToInterestingToken();
  std::unique_ptr<CVRMLPrototype> prototype(new (std::nothrow) CVRMLPrototype);
  if (!prototype) return false;
  prototype->SetName(name);
  ParseInterface(*prototype);
  Tokenize();
  MoveUpToInterestingToken();
  if (GetCurrentTokenType() != VRMLTokenOpenBrace) return false;

  char* body = nullptr;
  int length = 0;
  IOManager.CaptureBlockText(&body, &length, false);
  prototype->SetBodyText(body);
  prototype->SetBodyLength(length);
  if (!AddPrototypeToDictionary(prototype.get())) return false;
  prototype.release();
  return true;
}

// Reads the entries up to the ] of the interface. Events leave no trace.
void CVRMLParser::ParseInterface(CVRMLPrototype& prototype) {
  while (GetCurrentTokenType() != VRMLTokenCloseBracket && GetCurrentTokenType() != VRMLTokenEndOfFile) {
    switch (GetCurrentTokenType()) {
      case VRMLTokenEVENTIN:
      case VRMLTokenEVENTOUT:
        for (int i = 0; i < 3; ++i) Tokenize();  // the keyword, the type and the name
        break;
      case VRMLTokenEXPOSEDFIELD:
      case VRMLTokenFIELD: ParseInterfaceField(prototype); break;
      default: Tokenize(); break;
    }
  }
}

void CVRMLParser::ParseInterfaceField(CVRMLPrototype& prototype) {
  Tokenize();
  CBasicString type(IOManager.GetCurrentTokenText());
  Tokenize();
  const CBasicString name(IOManager.GetCurrentTokenText());
  Tokenize();
  char* text = nullptr;
  int length = 0;
  if (!IOManager.GetCurrentTokenEndsField()) IOManager.CaptureBlockText(&text, &length, true);
  qelvrml::AllocatedText owned(text);
  if (prototype.AddField(name, type, text, length)) owned.release();
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
  CBasicString url(IOManager.GetCurrentTokenText());
  while (isList && GetCurrentTokenType() != VRMLTokenCloseBracket && Tokenize()) {
  }
  return !CreateSubfilePath(url) || ParseSubfile(url);
}
