#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/fileint/FolderIndex.h"
#include "qelvrml/platform/system/TemporaryFile.h"

class CKelTextureManager;
class CVRMLDictionaryEntry;
class CVRMLParser;
class CVRMLSeparator;

namespace qelvrml {

class StripCoordinates;

/// Ids of the images that a load has come across, as the texture manager gave them; -1 for none.
struct KnownImages {
  const CKelTextureManager* Manager = nullptr;            ///< whose ids they are
  std::unordered_map<std::u16string, int> ByUrl;          ///< looked up in the folders that the host has named
  std::map<CKelFileInterface::FileIdentity, int> ByFile;  ///< however it was named
};

/// What one load knows. A LoadRun makes it new, and it ends with that.
struct LoadState {
  bool Running = false;
  CBasicString MainFile;  ///< as the host names it
  Budget Made;
  int EarlierScopes = 0;  ///< those that were open before this load
  int ScopesOfFile = 0;   ///< open ones that the file at hand began in; what closes one of them is one } too many
  std::uint64_t ObjectsAdded = 0;  ///< to the model
  bool MetGeometry = false;        ///< a node that makes objects, also if it made none
  bool PartsLeftOut = false;       ///< of the geometry at hand, for they name points that there are not
  bool MetInstance = false;        ///< of a prototype
  CBasicString LastPrototype;      ///< name of the last one that was declared
  int Nesting = 0;                 ///< ParseBlock calls inside one another
  int Expansions = 0;              ///< prototypes expanded inside one another
  int Rereading = 0;  ///< texts inside one another that aren't read for the first time: instances, and files again

  std::vector<CKelFileInterface::FileIdentity> FilesBeingRead;  ///< the main file, then the subfiles inside one another
  std::set<CKelFileInterface::FileIdentity> FilesRead;          ///< subfiles; their bytes count once
  FolderIndex Folders;                                          ///< of all files that are looked for
  int FilesAskedFor = 0;
  std::unordered_set<std::u16string> MissingFiles;  ///< paths that couldn't be opened
  std::size_t MissingCharacters = 0;                ///< of these
  KnownImages Images;
  std::shared_ptr<const StripCoordinates> LastStrips;  ///< coordinates of the last set of triangle strips
  TemporaryFile Unpacked;                              ///< the file that CreateTemporaryFilename has opened

  /// Counts one more file that the scene asks for; false if it has asked for all that it may.
  bool AskForFile() { return FilesAskedFor < MaximumFilesAskedFor && ++FilesAskedFor > 0; }

  int PassingOver = 0;              ///< stretches inside one another that are passed over by parsing
  std::uint64_t OutermostPass = 0;  ///< tells one outermost stretch from the others
  std::uint64_t PassedOver = 0;     ///< bytes of all stretches so far

  std::vector<const CVRMLSeparator*> SuspendedScopes;           ///< open ones that a recorded instance stands in
  std::vector<const CVRMLDictionaryEntry*> InstancesBeingRead;  ///< entries whose instance's body is being read
};

/// The time of a load: from the outermost of these objects of a parser to its end. An operation that a host calls by
/// itself, such as the reading of a subfile or a replay, is a load of its own.
class LoadRun {
public:
  explicit LoadRun(CVRMLParser& parser);
  LoadRun(const LoadRun&) = delete;
  LoadRun& operator=(const LoadRun&) = delete;
  ~LoadRun();

private:
  LoadState& Load;
  bool Outermost;
};

}  // namespace qelvrml
