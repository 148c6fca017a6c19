#include "qelvrml/parser/reading/NodeReader.h"

#include <algorithm>

namespace qelvrml {

void NodeReader::StepOver(std::initializer_list<VRMLTokenTypes> types) {
  while (std::find(types.begin(), types.end(), Current()) != types.end()) {
    if (!Parser.Tokenize()) break;
  }
}

void NodeReader::StepToOpenBrace() {
  while (!Is(VRMLTokenOpenBrace) && Parser.Tokenize()) {
  }
}

bool NodeReader::TakeNumberHere(double& value) {
  if (!Is(VRMLTokenNumber)) return false;
  value = Parser.GetCurrentTokenNumericValue();
  return true;
}

bool NodeReader::TakeNumberAndStep(float& value) {
  double number = 0.0;
  if (!TakeNumberHere(number)) return false;
  value = static_cast<float>(number);
  Parser.Tokenize();
  return true;
}

void NodeReader::TakeNumber(double& value) {
  Parser.Tokenize();
  TakeNumberHere(value);
}

void NodeReader::TakeBoolean(bool& value) {
  Parser.Tokenize();
  if (Is(VRMLTokenBoolean)) value = Parser.GetCurrentTokenBooleanValue();
}

FileReference NodeReader::ReferenceHere() const {
  const bool isName = !Parser.GetCurrentTokenBeginType() && !Parser.GetCurrentTokenEndType() && !Is(VRMLTokenEndOfFile);
  return {CBasicString(Text()), isName};
}

FileReference NodeReader::TakeFirstUrl() {
  if (Parser.GetCurrentTokenBeginType()) Parser.Tokenize();
  FileReference reference = ReferenceHere();
  if (Is(VRMLTokenCloseBracket)) Parser.Tokenize();
  return reference;
}

bool NodeReader::ParseBlocksUpToBracket() {
  bool result = false;
  while (!AtListEnd()) result = Parser.ParseBlock() || result;
  return result;
}

void NodeReader::ParseNodeOrList(bool& result) {
  if (!Is(VRMLTokenOpenBracket)) {
    result = Parser.ParseBlock();
    return;
  }
  Parser.Tokenize();
  result = ParseBlocksUpToBracket() || result;
}

}  // namespace qelvrml
