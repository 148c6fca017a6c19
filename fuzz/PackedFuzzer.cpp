// Unpacks any bytes: as a packed scene, as a PK-zip archive in memory, and as a gzip file chunk by chunk. What comes
// out of a gzip file is the same for all sizes of the chunks.
//
//   first byte   the size of the chunks
//   the rest     the packed file

#include <cstdlib>
#include <memory>

#include "Support.h"
#include "qelvrml/platform/brixex/CKelWorld.h"
#include "qelvrml/platform/brixex/packing/CKelCompress.h"
#include "qelvrml/platform/brixex/packing/CZLibDecompressor.h"

namespace {

// A few bytes can stand for a thousand times as many, which teaches nothing more.
constexpr std::size_t MostUnpacked = 1U << 20U;

void UnpackZip(std::string packed) {
  void* unpacked = nullptr;
  int size = 0;
  const bool done = CKelCompress().DecompressData(packed.data(), static_cast<int>(packed.size()), &unpacked, size);
  const std::unique_ptr<void, decltype(&std::free)> owned(unpacked, &std::free);
  if (!done) return;
  Require(unpacked && size >= 0, "a member without its bytes");
  const std::string text(static_cast<char*>(unpacked), static_cast<std::size_t>(size));
  Scratch::Get().Write("member", text);
}

/// The content of a gzip file up to where it is damaged or too long, and whether it came to its end.
struct Unpacked {
  std::string Text;
  bool Finished = false;
  bool Failed = false;
};

Unpacked UnpackGzip(std::string packed, std::size_t chunkSize) {
  std::string chunk(chunkSize, '\0');
  CZLibDecompressor decompressor;
  decompressor.SetCompressedData(packed.data());
  decompressor.SetCompressedDataSize(static_cast<int>(packed.size()));
  decompressor.SetDecompressedData(chunk.data());
  decompressor.SetDecompressedDataSize(static_cast<int>(chunk.size()));
  Unpacked result;
  if (!decompressor.InitializeDecompression()) return result;
  while (!result.Finished && result.Text.size() < MostUnpacked) {
    int produced = 0;
    bool memberEnded = false;
    if (!decompressor.DecompressData(produced, memberEnded, result.Finished)) {
      result.Failed = true;
      break;
    }
    Require(produced >= 0 && static_cast<std::size_t>(produced) <= chunk.size(), "a chunk of another size");
    if (produced == 0 && !memberEnded) break;
    result.Text.append(chunk, 0, static_cast<std::size_t>(produced));
  }
  return result;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::size_t chunkSize = 1U + data[0];
  const std::string packed(reinterpret_cast<const char*>(data) + 1, size - 1);
  CVRMLParser parser;
  CKelWorld world;
  parser.Parse(&world, Scratch::Get().Write("packed", packed).c_str());

  UnpackZip(packed);
  const Unpacked whole = UnpackGzip(packed, MostUnpacked);
  const Unpacked pieces = UnpackGzip(packed, chunkSize);
  if (whole.Text.size() >= MostUnpacked || pieces.Text.size() >= MostUnpacked) return 0;
  // What comes before the damage within its chunk is lost.
  Require(pieces.Text.starts_with(whole.Text), "larger chunks that give more");
  Require(whole.Failed || whole.Text == pieces.Text, "smaller chunks that give more");
  Require(whole.Finished == pieces.Finished, "an end that depends on the chunks");
  return 0;
}
