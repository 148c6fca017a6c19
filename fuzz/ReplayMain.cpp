// Stands in for libFuzzer where it isn't: feeds the files and the folders of files that the command names to the
// target. Options of libFuzzer are passed over.

#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "Support.h"

namespace {

void Replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int count, char** arguments) {
  int replayed = 0;
  for (int i = 1; i < count; ++i) {
    const std::filesystem::path path = arguments[i];
    if (arguments[i][0] == '-') continue;
    if (!std::filesystem::is_directory(path)) {
      Replay(path), ++replayed;
      continue;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
      if (entry.is_regular_file()) Replay(entry.path()), ++replayed;
    }
  }
  std::cout << replayed << " inputs\n";
  return 0;
}
