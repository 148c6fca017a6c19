#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"

namespace qelvrml {
class FileText;
class FolderIndex;
}  // namespace qelvrml

/// How a file is to be opened.
enum FileInterfaceTypes : std::uint32_t {
  FileInterfacePlain = 0,  ///< a file of the file system
};

/// Reads a file: its first bytes, or the whole of it into memory.
///
/// Only regular files are opened. Without a file of the exact path, one whose path differs only in the case of ASCII
/// letters is taken if it is the only one. The file is read, never mapped, so that a file that shrinks meanwhile does
/// no harm. One object is for one thread at a time.
class QELVRML_EXPORT CKelFileInterface {
public:
  /// Tells a file from all others that exist at the same time, by whatever path it was opened.
  struct FileIdentity {
    std::uint64_t Device = 0;  ///< number of the device that holds the file
    std::uint64_t Number = 0;  ///< number of the file there, its inode

    /// Equality, and an order by device and number for use as a key.
    /// @{
    bool operator==(const FileIdentity& other) const = default;
    bool operator<(const FileIdentity& other) const {
      return Device != other.Device ? Device < other.Device : Number < other.Number;
    }
    /// @}
  };

  /// Closed.
  CKelFileInterface() = default;
  /// A copy is closed, and so is what is assigned to; nothing else of `other` is taken.
  /// @{
  CKelFileInterface(const CKelFileInterface& /*other*/) {}
  CKelFileInterface& operator=(const CKelFileInterface& other);
  /// @}
  ~CKelFileInterface() { Close(); }

  /// Lets this object look for other cases of a path through an index that outlives it; null for one of its own at each
  /// opening.
  void SetFolders(qelvrml::FolderIndex* folders) { Folders = folders; }

  /// Opens for reading from the first byte; a file that is open is closed first. False for an empty path, one that
  /// can't be written in UTF-8, and for whatever isn't a regular file that may be read. `type` and `readOnly` have no
  /// effect.
  /// @{
  bool Open(const CBasicString& path);
  bool Open(const CBasicString& path, FileInterfaceTypes type, bool readOnly);
  /// @}
  /// Closes the file and gives its block up. Harmless on a closed object.
  void Close();
  /// Reads up to `count` bytes and gives the number read, 0 at the end, at a failure and for a closed file.
  int Read(void* data, int count);
  /// Size in bytes when the file was opened; saturates at the largest int; 0 for a closed file.
  int GetFileSize() const;
  /// Whether a file is open.
  bool GetFileHandleIsValid() const { return Descriptor >= 0; }
  /// Reads what is left of the file into memory, up to its size when it was opened; true if there was anything. Raises
  /// std::bad_alloc.
  bool ReadNextBlockFromFile();
  /// That of the file that was opened last, also when it is closed.
  FileIdentity GetIdentity() const { return Identity; }
  /// All files are plain ones.
  FileInterfaceTypes IdentifyFileType(const CBasicString& /*path*/) const { return FileInterfacePlain; }

  /// What ReadNextBlockFromFile has read last; null if nothing.
  std::shared_ptr<const qelvrml::FileText> GetBlock() const { return Block; }
  /// True if the last read failed for another reason than the end of the file.
  bool GetReadFailed() const { return ReadFailed; }

private:
  std::size_t ReadBytes(char* data, std::size_t count);

  qelvrml::FolderIndex* Folders = nullptr;
  int Descriptor = -1;
  std::size_t FileSize = 0;
  FileIdentity Identity;
  bool ReadFailed = false;
  std::shared_ptr<const qelvrml::FileText> Block;
};
