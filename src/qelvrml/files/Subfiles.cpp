// Files that a scene refers to. A subfile is read by the same parser in the place of the node that names it.

#include "qelvrml/files/Subfiles.h"

#include <algorithm>

#include "qelvrml/files/MissingFiles.h"
#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/Notes.h"
#include "qelvrml/parser/load/ParserInternals.h"
#include "qelvrml/parser/reading/InputFrame.h"
#include "qelvrml/platform/system/PathParts.h"

namespace qelvrml {
namespace {

/// Notes that a file is being read for the life of this object.
class FileBeingRead {
public:
  FileBeingRead(LoadState& load, const CKelFileInterface::FileIdentity& identity) : Load(load) {
    Load.FilesBeingRead.push_back(identity);
  }
  FileBeingRead(const FileBeingRead&) = delete;
  FileBeingRead& operator=(const FileBeingRead&) = delete;
  ~FileBeingRead() { Load.FilesBeingRead.pop_back(); }

private:
  LoadState& Load;
};

// Files in text that is passed over are read as well, and once more where that text is read.
void NoteFile(CVRMLParser& parser, VRMLNoteTypes kind, const CBasicString& path) {
  if (!parser.GetSkippingBlock()) NoteName(parser, kind, path);
}

void ListMissingFile(CVRMLParser& parser, const CBasicString& path) {
  LoadState& load = ParserInternals::Load(parser);
  const std::u16string_view name = path.GetView();
  if (name.size() > MaximumMissingCharacters - load.MissingCharacters) return;
  if (!load.MissingFiles.emplace(name).second) return;
  load.MissingCharacters += name.size();
  ParserInternals::MissingFiles(parser).push_back(path);
}

void NoteMissingSubfile(CVRMLParser& parser, const CBasicString& path) {
  NoteFile(parser, VRMLNoteMissingFile, path);
  ListMissingFile(parser, path);
}

// Lets the parser's own token source read an opened file to its end.
bool ReadOpenedFile(CVRMLParser& parser, CVRMLIOManager& subfile) {
  const InputFrame frame(parser);
  const ScopedValue<int> scopes(ParserInternals::Load(parser).ScopesOfFile, parser.GetSeparatorStack()->GetCount());
  CGenericIOState own;
  subfile.SaveIOState(own);
  parser.RestoreIOState(own);
  bool result = false;
  while (parser.GetCurrentTokenType() != VRMLTokenEndOfFile) result = parser.ParseBlock() || result;
  return result;
}

// Whether a file may be read: it isn't being read already, and what a later reading costs is left. Asked before its
// text is read, which takes time as well.
bool MayRead(CVRMLParser& parser, const CKelFileInterface& file, const CBasicString& path, bool again) {
  const auto& reading = ParserInternals::Load(parser).FilesBeingRead;
  if (std::find(reading.begin(), reading.end(), file.GetIdentity()) != reading.end()) {
    NoteFile(parser, VRMLNoteRefusedFile, path);
    return false;
  }
  return !again || CanMake(parser, {.ExpandedText = static_cast<std::uint64_t>(file.GetFileSize())});
}

bool ReadSubfile(CVRMLParser& parser, const CBasicString& path, bool noteIfMissing) {
  const LoadRun run(parser);
  LoadState& load = ParserInternals::Load(parser);
  if (load.FilesBeingRead.size() > MaximumSubfileNesting) {
    Note(parser, VRMLNoteLimit, limits::Subfiles);
    return false;
  }
  if (!AskForFile(parser)) return false;
  if (!CanMake(parser, {.Steps = StepsOfASubfile})) return false;
  if (load.MissingFiles.count(std::u16string(path.GetView())) > 0) {
    NoteFile(parser, VRMLNoteMissingFile, path);
    return false;
  }
  CVRMLIOManager subfile;
  CKelFileInterface& file = subfile.GetFileInterface();
  file.SetFolders(&load.Folders);
  if (!file.Open(path) && noteIfMissing) NoteMissingSubfile(parser, path);
  if (!file.GetFileHandleIsValid()) return false;
  const bool again = load.FilesRead.count(file.GetIdentity()) > 0;
  if (!MayRead(parser, file, path, again)) return false;
  load.FilesRead.insert(file.GetIdentity());
  subfile.SetFilename(path);
  const VRMLLoadResultTypes opened = subfile.OpenFile();
  if (opened == VRMLLoadOpenFailed && noteIfMissing) NoteMissingSubfile(parser, path);
  if (opened == VRMLLoadFailed) NoteFile(parser, VRMLNoteRefusedFile, path);
  if (opened != VRMLLoadOK) return false;

  const auto size = static_cast<std::uint64_t>(subfile.GetTotalFileSize());
  if (!again) load.Made.AddInput(size);
  if (load.PassingOver > 0) load.PassedOver += size;
  const ScopedValue<int> rereading(load.Rereading, load.Rereading + (again ? 1 : 0));
  const FileBeingRead beingRead(load, file.GetIdentity());
  return ReadOpenedFile(parser, subfile);
}

}  // namespace

bool ReadReferredFile(CVRMLParser& parser, const FileReference& reference) {
  if (reference.Name.GetLength() > MaximumNameLength) {
    Note(parser, VRMLNoteLimit, limits::FileName);
    return false;
  }
  CBasicString path = reference.Name;
  return !parser.CreateSubfilePath(path) || ReadSubfile(parser, path, reference.IsName);
}

bool AskForFile(CVRMLParser& parser) {
  const bool allowed = ParserInternals::Load(parser).AskForFile();
  if (!allowed) Note(parser, VRMLNoteLimit, limits::Files);
  return allowed;
}

// An image is looked for once, also if that is where text is passed over.
void NoteMissingFile(CVRMLParser& parser, const CBasicString& path) {
  NoteName(parser, VRMLNoteMissingFile, path);
  ListMissingFile(parser, path);
}

}  // namespace qelvrml

using qelvrml::NodeReader;

bool CVRMLParser::ParseWWWInline() {
  if (!CurrentSeparator) return true;

  qelvrml::FileReference file;
  NodeReader reader(*this);
  reader.StepOver({VRMLTokenOpenBrace, VRMLTokenOpenBracket, VRMLTokenINLINE});
  reader.WhileInNode([&](VRMLTokenTypes keyword) {
    Tokenize();
    if (keyword == VRMLTokenURL || keyword == VRMLTokenNAME) file = reader.TakeFirstUrl();
  });
  return qelvrml::ReadReferredFile(*this, file);
}

bool CVRMLParser::ParseSubfile(const CBasicString& path) { return qelvrml::ReadSubfile(*this, path, true); }

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

CBasicString CVRMLParser::GetResolvedFile(const CBasicString& url) {
  CBasicString resolved;
  if (GetSupportFilePtr && GetSupportFilePtr(IOManager.GetFilename(), url, resolved) == 0) resolved.Empty();
  return resolved;
}

bool CVRMLParser::FileExists(const CBasicString& path) { return CKelFileInterface().Open(path); }
