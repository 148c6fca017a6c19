// Decodes any bytes as the image of a texture.

#include "Support.h"
#include "qelvrml/platform/brixex/textures/CKelTexture.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string path = Scratch::Get().Write("image", {reinterpret_cast<const char*>(data), size});
  CKelTexture texture;
  if (!texture.GenerateTextureFromFile(path.c_str())) {
    Require(!texture.GetPixelArray() && texture.GetWidth() == 0, "an image that failed and left something");
    return 0;
  }
  const auto width = static_cast<std::size_t>(texture.GetWidth());
  const auto height = static_cast<std::size_t>(texture.GetHeight());
  Require(width > 0 && height > 0 && width * height <= CKelTexture::MostPixels, "an image of a bad size");
  // The sanitizer looks whether there are as many pixels as that.
  const auto* bytes = reinterpret_cast<const volatile unsigned char*>(texture.GetPixelArray());
  for (const std::size_t i : {std::size_t{0}, width * height * sizeof(SKelTexturePixel) - 1})
    static_cast<void>(bytes[i]);
  return 0;
}
