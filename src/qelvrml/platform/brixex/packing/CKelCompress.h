#pragma once

#include "qelvrml/foundation/VRMLExport.h"

/// Unpacks a member of a PK-zip archive in memory. Keeps nothing between calls.
class QELVRML_EXPORT CKelCompress {
public:
  CKelCompress() = default;
  /// There is nothing to copy.
  /// @{
  CKelCompress(const CKelCompress&) = default;
  CKelCompress& operator=(const CKelCompress&) = default;
  /// @}
  virtual ~CKelCompress() = default;

  /// Unpacks the first member whose name ends in ".wrl", in any case, else the first that isn't a folder; hidden
  /// members (a last component that begins with a dot, or anything below __MACOSX/) don't count.
  ///
  /// `data` holds the whole archive in `size` bytes and stays the caller's, who also releases `*result` with `free`.
  /// False, and no result, for null or no bytes, for what isn't an archive or has no such member, for one that is
  /// encrypted, damaged, whose CRC is wrong, or that has more than INT_MAX bytes, and when there is no memory.
  bool DecompressData(void* data, int size, void** result, int& resultSize);
};
