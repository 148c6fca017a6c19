// Loads any bytes as a scene and looks whether the model is sound.

#include "Support.h"
#include "qelvrml/platform/brixex/CKelWorld.h"
#include "support/CheckModel.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = Scratch::Get().Write("scene.wrl", {reinterpret_cast<const char*>(data), size});
  CKelWorld world;
  CVRMLParser parser;
  parser.Parse(&world, path.c_str());
  const std::string fault = FindFault(world);
  Require(fault.empty(), fault);
  return 0;
}
