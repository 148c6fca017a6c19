// What unpacking takes at the least: zlib inflates each file by chunks, and nothing is kept of them but their size.
//
//   inflate FILE...

#include <fcntl.h>
#include <unistd.h>
#include <zlib.h>

#include <cstdio>
#include <vector>

namespace {

constexpr std::size_t ChunkSize = 1'000'000;
constexpr int GzipWindow = 15 + 16;

class Inflater {
public:
  Inflater() { Result = inflateInit2(&Stream, GzipWindow); }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
  ~Inflater() { inflateEnd(&Stream); }

  void Take(Bytef* bytes, std::size_t count) {
    Stream.next_in = bytes;
    Stream.avail_in = static_cast<uInt>(count);
    do {
      Stream.next_out = Chunk.data();
      Stream.avail_out = static_cast<uInt>(Chunk.size());
      Result = inflate(&Stream, Z_NO_FLUSH);
    } while (Result == Z_OK && Stream.avail_out == 0);
  }
  // A full chunk leaves it open whether there is more, and then there is none: no fault.
  bool WantsMore() const { return Result == Z_OK || Result == Z_BUF_ERROR; }
  bool IsComplete() const { return Result == Z_STREAM_END; }
  std::size_t GetSize() const { return Stream.total_out; }

private:
  z_stream Stream{};
  int Result = Z_OK;
  std::vector<Bytef> Chunk = std::vector<Bytef>(ChunkSize);
};

bool InflateFile(const char* path, std::size_t& size) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  std::vector<Bytef> packed(ChunkSize);
  Inflater inflater;
  while (inflater.WantsMore()) {
    const ssize_t got = read(file, packed.data(), packed.size());
    if (got <= 0) break;
    inflater.Take(packed.data(), static_cast<std::size_t>(got));
  }
  close(file);
  size += inflater.GetSize();
  return inflater.IsComplete();
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t size = 0;
  for (int i = 1; i < argc; ++i) {
    if (!InflateFile(argv[i], size)) {
      std::fprintf(stderr, "inflate: %s can't be unpacked\n", argv[i]);
      return 1;
    }
  }
  std::printf("%zu\n", size);
}
