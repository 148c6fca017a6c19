#pragma once

#include <memory>

#include "qelvrml/foundation/VRMLExport.h"

/// Unpacks a gzip file from memory, chunk by chunk: header, trailer and all its members. The magic 1F 9E is read as the
/// older spelling of 1F 8B.
///
/// Set both buffers, call InitializeDecompression, then DecompressData until it gives false, produces nothing or has
/// finished. The buffers outlive that.
class QELVRML_EXPORT CZLibDecompressor {
public:
  /// Without buffers, and nothing begun.
  CZLibDecompressor();
  CZLibDecompressor(const CZLibDecompressor&) = delete;
  CZLibDecompressor& operator=(const CZLibDecompressor&) = delete;
  virtual ~CZLibDecompressor();

  /// The whole content of the file and its number of bytes; not owned, and its magic may be rewritten in place.
  /// @{
  void SetCompressedData(char* data) { Compressed = data; }
  void SetCompressedDataSize(int size) { CompressedSize = size; }
  /// @}
  /// The buffer that each call fills from its start, and its number of bytes; not owned.
  /// @{
  void SetDecompressedData(char* data) { Decompressed = data; }
  void SetDecompressedDataSize(int size) { DecompressedSize = size; }
  /// @}
  /// Begins with the first member, anew if something was begun. False without data, for what isn't gzip, and when there
  /// is no memory.
  bool InitializeDecompression();
  /// Fills the buffer as far as the data goes and stores the number of bytes in `produced`. `memberEnded` tells that a
  /// further member of the file was begun, `finished` that all of it is unpacked; both are only set, never cleared, and
  /// nothing is done while `finished` is set. False for data that isn't sound; what was produced before doesn't count
  /// then. A stream that breaks off gives what there is, and nothing at the next call.
  bool DecompressData(int& produced, bool& memberEnded, bool& finished);

private:
  struct Stream;
  bool BeginMember();

  char* Compressed = nullptr;
  int CompressedSize = 0;
  char* Decompressed = nullptr;
  int DecompressedSize = 0;
  std::unique_ptr<Stream> State;
};
