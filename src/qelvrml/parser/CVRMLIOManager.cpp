#include "qelvrml/parser/CVRMLIOManager.h"

#include <algorithm>
#include <string_view>

#include "qelvrml/foundation/AsciiCase.h"
#include "qelvrml/parser/KeywordTable.h"
#include "qelvrml/platform/genparse/KeywordIndex.h"

namespace {

constexpr auto KeywordRows = static_cast<int>(VRMLKeywordCount);

std::shared_ptr<const qelvrml::KeywordIndex> GetKeywordIndex() {
  static const auto index = qelvrml::KeywordIndex::ForTable(GetKeywordTable().data(), KeywordRows);
  return index;
}

}  // namespace

CVRMLIOManager::CVRMLIOManager() : CGenericParser(GetKeywordTable().data(), KeywordRows, GetKeywordIndex()) {}

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
