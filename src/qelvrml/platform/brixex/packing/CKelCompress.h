#pragma once

#include "qelvrml/foundation/VRMLExport.h"

/// Unpacks a member of a PK-zip archive in memory.
class QELVRML_EXPORT CKelCompress {
public:
  CKelCompress() = default;
  CKelCompress(const CKelCompress&) = default;
  CKelCompress& operator=(const CKelCompress&) = default;
  virtual ~CKelCompress() = default;

  /// Unpacks the first member whose name ends in ".wrl", in any case, else the first that isn't a folder; hidden
  /// members (a last component that begins with a dot, or anything below __MACOSX/) don't count. The caller releases
  /// `*result` with `free`. False for a member that is encrypted, damaged, whose CRC is wrong, or that has more than
  /// INT_MAX bytes.
  bool DecompressData(void* data, int size, void** result, int& resultSize);
};
