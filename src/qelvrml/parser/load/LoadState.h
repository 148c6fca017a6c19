#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "qelvrml/parser/load/Budget.h"
#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/system/TemporaryFile.h"

class CVRMLDictionaryEntry;
class CVRMLParser;
class CVRMLSeparator;

namespace qelvrml {

/// What one load knows. A LoadRun makes it new, and it ends with that.
struct LoadState {
  bool Running = false;
  Budget Made;
  int EarlierScopes = 0;  ///< those that were open before this load
  int Nesting = 0;        ///< ParseBlock calls inside one another
  int Expansions = 0;     ///< prototypes expanded inside one another
  int Rereading = 0;      ///< texts inside one another that aren't read for the first time: instances, and files again

  std::vector<CKelFileInterface::FileIdentity> FilesBeingRead;  ///< the main file, then the subfiles inside one another
  std::set<std::pair<std::uint64_t, std::uint64_t>> FilesRead;  ///< by device and number; their bytes count once
  int SubfilesAskedFor = 0;
  std::unordered_set<std::u16string> MissingFiles;     ///< paths that couldn't be opened
  std::unordered_set<std::u16string> MissingTextures;  ///< URLs of images that weren't found
  TemporaryFile Unpacked;                              ///< the file that CreateTemporaryFilename has opened

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
