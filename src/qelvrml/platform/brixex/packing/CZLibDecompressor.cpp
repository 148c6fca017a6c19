#include "qelvrml/platform/brixex/packing/CZLibDecompressor.h"

#include <zlib.h>

#include <new>

namespace {

constexpr unsigned char Magic = 0x1F;
constexpr unsigned char GzipMagic = 0x8B;
constexpr unsigned char OlderMagic = 0x9E;
constexpr int GzipWindow = 15 + 16;  // the largest window, with a gzip header and trailer

}  // namespace

struct CZLibDecompressor::Stream {
  z_stream Zlib{};
  bool Begun = false;

  Stream() = default;
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  ~Stream() {
    if (Begun) inflateEnd(&Zlib);
  }
};

CZLibDecompressor::CZLibDecompressor() = default;
CZLibDecompressor::~CZLibDecompressor() = default;

bool CZLibDecompressor::InitializeDecompression() {
  State.reset(new (std::nothrow) Stream);
  if (!State || !Compressed || CompressedSize <= 0) return false;
  State->Zlib.next_in = reinterpret_cast<Bytef*>(Compressed);
  State->Zlib.avail_in = static_cast<uInt>(CompressedSize);
  State->Begun = inflateInit2(&State->Zlib, GzipWindow) == Z_OK;
  return State->Begun && BeginMember();
}

// Whether a gzip member begins here; what follows the last member is ignored.
bool CZLibDecompressor::BeginMember() {
  z_stream& zlib = State->Zlib;
  if (zlib.avail_in < 2 || zlib.next_in[0] != Magic) return false;
  if (zlib.next_in[1] == OlderMagic) zlib.next_in[1] = GzipMagic;
  return zlib.next_in[1] == GzipMagic;
}

bool CZLibDecompressor::DecompressData(int& produced, bool& memberEnded, bool& finished) {
  produced = 0;
  if (!State || !State->Begun || !Decompressed || DecompressedSize <= 0) return false;
  z_stream& zlib = State->Zlib;
  zlib.next_out = reinterpret_cast<Bytef*>(Decompressed);
  zlib.avail_out = static_cast<uInt>(DecompressedSize);
  while (zlib.avail_out > 0 && !finished) {
    const int result = inflate(&zlib, Z_NO_FLUSH);
    if (result == Z_STREAM_END) {
      finished = !BeginMember() || inflateReset(&zlib) != Z_OK;
      memberEnded = memberEnded || !finished;
    } else if (result == Z_BUF_ERROR) {
      break;  // the stream has broken off
    } else if (result != Z_OK) {
      return false;
    }
  }
  produced = DecompressedSize - static_cast<int>(zlib.avail_out);
  return true;
}
