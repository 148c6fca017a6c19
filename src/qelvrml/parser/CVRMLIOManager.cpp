#include "qelvrml/parser/CVRMLIOManager.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "qelvrml/parser/KeywordTable.h"
#include "qelvrml/platform/genparse/Characters.h"

namespace {

// By token class; a keyword gives its own value.
constexpr std::array<VRMLTokenTypes, 11> TypesOfClasses = {
    VRMLTokenUnknown,     VRMLTokenEndOfFile,    VRMLTokenOpenBrace, VRMLTokenCloseBrace,
    VRMLTokenOpenBracket, VRMLTokenCloseBracket, VRMLTokenOpenParen, VRMLTokenCloseParen,
    VRMLTokenSTRING,      VRMLTokenBoolean,      VRMLTokenNumber};
static_assert(TypesOfClasses[GenericTokenNumber] == VRMLTokenNumber);

}  // namespace

CVRMLIOManager::CVRMLIOManager() {
  SetKeywordTable(GetKeywordTable().data());
  SetKeywordTableSize(static_cast<int>(VRMLKeywordCount));
}

VRMLLoadResultTypes CVRMLIOManager::OpenFile() {
  switch (OpenAndInitialize()) {
    case GenericLoadOK: return VRMLLoadOK;
    case GenericLoadOpenFailed: return VRMLLoadOpenFailed;
    default: return VRMLLoadFailed;
  }
}

bool CVRMLIOManager::ReadFileHeader() {
  if (!GetFileInterface().GetFileHandleIsValid()) return false;
  GetFileInterface().ReadNextBlockFromFile();
  if (!GetNextLineFromBuffer() || GetInputStringEmpty()) return false;

  std::string_view line = GetInputString();
  std::transform(line.begin(), line.end(), GetInputString(), qelvrml::ToUpperAscii);
  line = GetInputString();
  const bool version10 = line.starts_with("#VRML V1.0 ASCII");
  const bool version20 = line.starts_with("#VRML V2.0 UTF8");
  if (version10) Version = VRMLVersion10;
  if (version20) Version = VRMLVersion20;
  SetInputStringValue(nullptr);
  return version10 || version20;
}

VRMLTokenTypes CVRMLIOManager::GetTokenType(const CGenericToken& token) {
  const GenericTokenTypes type = token.GetDataType();
  if (type == GenericTokenUserDefined) return static_cast<VRMLTokenTypes>(token.GetUserDefinedType());
  return type < TypesOfClasses.size() ? TypesOfClasses[type] : VRMLTokenUnknown;
}

bool CVRMLIOManager::IsBeginType(VRMLTokenTypes type) {
  return type == VRMLTokenOpenBrace || type == VRMLTokenOpenBracket || type == VRMLTokenOpenParen;
}

bool CVRMLIOManager::IsEndType(VRMLTokenTypes type) {
  return type == VRMLTokenCloseBrace || type == VRMLTokenCloseBracket || type == VRMLTokenCloseParen;
}

bool CVRMLIOManager::EndsField(VRMLTokenTypes type) {
  switch (type) {
    case VRMLTokenEXPOSEDFIELD:
    case VRMLTokenFIELD:
    case VRMLTokenEVENTIN:
    case VRMLTokenEVENTOUT:
    case VRMLTokenCloseBracket:
    case VRMLTokenEndOfFile: return true;
    default: return false;
  }
}
