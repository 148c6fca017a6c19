// What reading a scene takes at the least: each file is read whole into memory, split into words in one pass over its
// bytes, and each word that can be a number is turned into one. Nothing is kept of them but their sum.
//
//   floor FILE...

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <memory>
#include <string_view>

namespace {

struct Sums {
  std::size_t Words = 0;
  double Numbers = 0.0;
};

using Classes = std::array<bool, 256>;

constexpr Classes MakeClasses(bool space, std::string_view others) {
  Classes classes{};
  for (std::size_t c = 0; c <= 0x20; ++c) classes[c] = space;
  classes[','] = space;
  for (const char c : others) classes[static_cast<unsigned char>(c)] = true;
  return classes;
}

constexpr Classes Space = MakeClasses(true, "");
constexpr Classes EndsWord = MakeClasses(true, "{}[]()\"#");
constexpr Classes BeginsNumber = MakeClasses(false, "+-.0123456789");

bool Is(const Classes& classes, const char* p) { return classes[static_cast<unsigned char>(*p)]; }

const char* BehindQuoted(const char* p, const char* end) {
  for (++p; p != end && *p != '"'; ++p) {
  }
  return p == end ? p : p + 1;
}

void Split(const char* p, const char* end, Sums& sums) {
  while (p != end) {
    if (Is(Space, p)) {
      ++p;
    } else if (*p == '#') {
      while (p != end && *p != '\n') ++p;
    } else if (*p == '"') {
      p = BehindQuoted(p, end);
    } else {
      const char* begin = p++;
      while (p != end && !Is(EndsWord, begin) && !Is(EndsWord, p)) ++p;
      ++sums.Words;
      float value = 0.0F;
      if (Is(BeginsNumber, begin)) std::from_chars(*begin == '+' ? begin + 1 : begin, p, value);
      sums.Numbers += static_cast<double>(value);
    }
  }
}

bool SplitFile(const char* path, Sums& sums) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (file < 0 || fstat(file, &status) != 0) return false;
  const auto size = static_cast<std::size_t>(status.st_size);
  const std::unique_ptr<char[]> text(new char[size]);
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got = read(file, text.get() + done, size - done);
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  close(file);
  Split(text.get(), text.get() + done, sums);
  return done == size;
}

}  // namespace

int main(int argc, char** argv) {
  Sums sums;
  for (int i = 1; i < argc; ++i) {
    if (!SplitFile(argv[i], sums)) return 1;
  }
  std::printf("%zu words, numbers sum up to %g\n", sums.Words, sums.Numbers);
}
