// Compressed main files: they are unpacked into a temporary file, which is read in their place and removed at the end
// of the load. The kind is told by the first bytes.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

#include "qelvrml/foundation/TextConversion.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/platform/brixex/packing/CKelCompress.h"
#include "qelvrml/platform/brixex/packing/CZLibDecompressor.h"
#include "qelvrml/platform/system/TemporaryFile.h"

namespace {

using namespace std::string_view_literals;

constexpr int ProbeLength = 256;
constexpr int OutputChunk = 0xFA000;

enum class FileKinds : unsigned char { Plain, Gzip, PKZip, OtherCompressed };

FileKinds KindOf(std::string_view start) {
  if (start.starts_with("\x1F\x8B"sv) || start.starts_with("\x1F\x9E"sv)) return FileKinds::Gzip;
  if (start.starts_with("PK\x03\x04"sv)) return FileKinds::PKZip;
  if (start.starts_with("\x1F\x1E"sv) || start.starts_with("\x1F\xA0"sv)) return FileKinds::OtherCompressed;
  return FileKinds::Plain;
}

/// The whole of a packed file in memory.
struct PackedFile {
  std::unique_ptr<char[]> Bytes;
  int Size = 0;
};

// Without bytes when the file can't be read or there is no memory for it.
PackedFile ReadPackedFile(const CBasicString& path) {
  PackedFile packed;
  CKelFileInterface file;
  if (!file.Open(path) || file.GetFileSize() <= 0) return packed;
  packed.Bytes.reset(new (std::nothrow) char[static_cast<std::size_t>(file.GetFileSize())]);
  if (packed.Bytes) packed.Size = file.Read(packed.Bytes.get(), file.GetFileSize());
  return packed;
}

// One chunk that was written whole is enough: a stream that breaks off later gives a shorter file.
bool UnpackGZip(PackedFile& packed, qelvrml::TemporaryFile& output) {
  const std::unique_ptr<char[]> chunk(new (std::nothrow) char[OutputChunk]);
  if (!chunk) return false;
  CZLibDecompressor decompressor;
  decompressor.SetCompressedData(packed.Bytes.get());
  decompressor.SetCompressedDataSize(packed.Size);
  decompressor.SetDecompressedData(chunk.get());
  decompressor.SetDecompressedDataSize(OutputChunk);
  decompressor.InitializeDecompression();
  bool result = false;
  bool memberEnded = false;
  int left = std::numeric_limits<int>::max();
  for (bool finished = false; !finished;) {
    int produced = 0;
    if (!decompressor.DecompressData(produced, memberEnded, finished) || produced <= 0) break;
    if (produced > left) return false;
    left -= produced;
    result = output.Write(chunk.get(), static_cast<std::size_t>(produced)) || result;
  }
  return result;
}

bool UnpackPKZip(PackedFile& packed, qelvrml::TemporaryFile& output) {
  void* unpacked = nullptr;
  int size = 0;
  if (!CKelCompress().DecompressData(packed.Bytes.get(), packed.Size, &unpacked, size)) return false;
  const std::unique_ptr<void, decltype(&std::free)> owned(unpacked, &std::free);
  return size > 0 && output.Write(static_cast<const char*>(unpacked), static_cast<std::size_t>(size));
}

}  // namespace

bool CVRMLParser::DetermineIfFileIsZip(const CBasicString& path) {
  CKelFileInterface& file = IOManager.GetFileInterface();
  if (!file.Open(path, file.IdentifyFileType(path), true)) return false;
  std::array<char, ProbeLength> start{};
  const int length = file.Read(start.data(), ProbeLength);
  file.Close();
  switch (KindOf({start.data(), static_cast<std::size_t>(length)})) {
    case FileKinds::Gzip: return !DecompressGZipFile(path);
    case FileKinds::PKZip: return !DecompressPKZipFile(path);
    case FileKinds::OtherCompressed: return true;
    case FileKinds::Plain: break;
  }
  return false;
}

bool CVRMLParser::DecompressGZipFile(const CBasicString& path) { return DecompressFile(path, UnpackGZip); }
bool CVRMLParser::DecompressPKZipFile(const CBasicString& path) { return DecompressFile(path, UnpackPKZip); }

template <class Unpack>
bool CVRMLParser::DecompressFile(const CBasicString& path, Unpack unpack) {
  bool result = false;
  const CBasicString unpacked = CreateTemporaryFilename();
  if (unpacked.GetLength() > 0) {
    SetTemporaryFilename(unpacked);
    IOManager.GetFileInterface().Close();
    PackedFile packed = ReadPackedFile(path);
    result = packed.Size > 0 && unpack(packed, Load->Unpacked);
    Load->Unpacked.Close();
  }
  if (!result) DestroyTemporaryFile();
  return result;
}

CBasicString CVRMLParser::CreateTemporaryFilename() {
  return CBasicString(std::string_view(Load->Unpacked.Create("VRML", ".wrl")));
}

bool CVRMLParser::DestroyTemporaryFile() {
  const bool exists = TemporaryFilename.GetLength() > 0;
  const auto path = qelvrml::Narrow(TemporaryFilename.GetView());
  if (exists && path) std::remove(path->c_str());
  Load->Unpacked.Remove();
  ClearTemporaryFilename();
  return exists;
}
