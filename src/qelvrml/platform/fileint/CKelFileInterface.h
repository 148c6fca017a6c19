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
/// no harm. A copy is closed.
class QELVRML_EXPORT CKelFileInterface {
public:
  /// Tells a file from all others, by whatever path it was opened.
  struct FileIdentity {
    std::uint64_t Device = 0;
    std::uint64_t Number = 0;

    bool operator==(const FileIdentity& other) const = default;
    bool operator<(const FileIdentity& other) const {
      return Device != other.Device ? Device < other.Device : Number < other.Number;
    }
  };

  CKelFileInterface() = default;
  CKelFileInterface(const CKelFileInterface& /*other*/) {}
  CKelFileInterface& operator=(const CKelFileInterface& other);
  ~CKelFileInterface() { Close(); }

  /// Lets this object look for other cases of a path through an index that outlives it; null for one of its own at each
  /// opening.
  void SetFolders(qelvrml::FolderIndex* folders) { Folders = folders; }

  /// Opens for reading from the first byte; a file that is open is closed first.
  bool Open(const CBasicString& path);
  bool Open(const CBasicString& path, FileInterfaceTypes type, bool readOnly);
  /// Harmless on a closed object.
  void Close();
  /// Reads up to `count` bytes and gives the number read, 0 at the end and at a failure.
  int Read(void* data, int count);
  /// Size in bytes; saturates at the largest int; 0 for a closed file.
  int GetFileSize() const;
  bool GetFileHandleIsValid() const { return Descriptor >= 0; }
  /// Reads what is left of the file into memory; true if there was anything.
  bool ReadNextBlockFromFile();
  FileIdentity GetIdentity() const { return Identity; }
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
