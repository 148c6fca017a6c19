// Files that a scene refers to. A subfile is read by the same parser in the place of the node that names it.

#include <algorithm>

#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/Limits.h"
#include "qelvrml/platform/system/PathParts.h"

bool CVRMLParser::ParseWWWInline() {
  if (!CurrentSeparator) return true;

  CBasicString name;
  StepOver({VRMLTokenOpenBrace, VRMLTokenOpenBracket, VRMLTokenINLINE});
  WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    if (keyword == VRMLTokenURL || keyword == VRMLTokenNAME) name = TakeFirstUrl();
  });
  return !CreateSubfilePath(name) || ParseSubfile(name);
}

// The text at the current token, or behind the bracket there. Ends on it, or behind a ].
CBasicString CVRMLParser::TakeFirstUrl() {
  if (GetCurrentTokenBeginType()) Tokenize();
  CBasicString url(IOManager.GetCurrentTokenText());
  if (GetCurrentTokenType() == VRMLTokenCloseBracket) Tokenize();
  return url;
}

bool CVRMLParser::CreateSubfilePath(CBasicString& path) const {
  if (path.GetLength() == 0) return false;
  CBasicString current = IOManager.GetFilename();
  RemoveQuotes(current);
  RemoveQuotes(path);
  std::u16string joined(qelvrml::DirectoryOf(current.GetView()));
  joined += qelvrml::LastComponentOf(path.GetView());
  path = CBasicString(joined);
  return path.GetLength() > 0;
}

bool CVRMLParser::RemoveQuotes(CBasicString& text) { return text.Replace(CBasicString('"'), CBasicString()); }

bool CVRMLParser::ParseSubfile(const CBasicString& path) {
  if (FilesBeingRead.size() > qelvrml::MaximumSubfileNesting || Subfiles >= qelvrml::MaximumSubfiles) return false;
  ++Subfiles;
  if (MissingFileNames.count(std::u16string(path.GetView())) > 0) return false;
  CVRMLIOManager subfile;
  subfile.SetFilename(path);
  const VRMLLoadResultTypes opened = subfile.OpenFile();
  if (opened == VRMLLoadOpenFailed) NoteMissingFile(path);
  if (opened != VRMLLoadOK) return false;
  const qelvrml::FileIdentity identity = subfile.GetFileInterface().GetIdentity();
  if (std::find(FilesBeingRead.begin(), FilesBeingRead.end(), identity) != FilesBeingRead.end()) return false;

  FilesBeingRead.push_back(identity);
  const bool result = ReadSubfile(subfile);
  FilesBeingRead.pop_back();
  return result;
}

// Lets the parser's own token source read an opened file to its end.
bool CVRMLParser::ReadSubfile(CVRMLIOManager& subfile) {
  CGenericIOState own;
  CGenericIOState parent;
  SaveIOState(parent);
  subfile.SaveIOState(own);
  RestoreIOState(own);
  bool result = false;
  while (GetCurrentTokenType() != VRMLTokenEndOfFile) result = ParseBlock() || result;
  RestoreIOState(parent);
  return result;
}

void CVRMLParser::NoteMissingFile(const CBasicString& path) {
  if (MissingFileNames.insert(std::u16string(path.GetView())).second) MissingFiles.push_back(path);
}

CBasicString CVRMLParser::GetResolvedFile(const CBasicString& url) {
  CBasicString resolved;
  if (GetSupportFilePtr && GetSupportFilePtr(IOManager.GetFilename(), url, resolved) == 0) resolved.Empty();
  return resolved;
}

bool CVRMLParser::FileExists(const CBasicString& path) { return CKelFileInterface().Open(path); }
