// Loads any bytes as a scene and looks whether the model is sound.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/CKelWorld.h"
#include "support/CheckModel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path =
      (std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(std::rand()) + ".wrl")).string();
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  CKelWorld world;
  CVRMLParser parser;
  parser.Parse(&world, path.c_str());
  const std::string fault = FindFault(world);
  if (!fault.empty()) {
    std::cerr << fault << '\n';
    std::abort();
  }
  return 0;
}
