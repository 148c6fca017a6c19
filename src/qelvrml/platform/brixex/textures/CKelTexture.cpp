#include "qelvrml/platform/brixex/textures/CKelTexture.h"

#include <new>
#include <string_view>
#include <utility>

#include "qelvrml/platform/brixex/textures/ImageFile.h"
#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/fileint/FileText.h"

bool CKelTexture::AllocatePixelArray(unsigned int count) {
  Pixels.reset();
  if (count > MostPixels) return false;
  Pixels.reset(new (std::nothrow) SKelTexturePixel[count]());
  return Pixels != nullptr;
}

bool CKelTexture::GenerateTextureFromFile(const CBasicString& filename) {
  CKelFileInterface file;
  if (!file.Open(filename) || !file.ReadNextBlockFromFile()) return false;
  const auto block = file.GetBlock();
  qelvrml::Image image = qelvrml::DecodeImage({block->begin(), block->GetSize()}, MostPixels,
                                              [](std::uint64_t /*pixels*/) { return true; });
  if (!image.Pixels) return false;
  SetImage(std::move(image.Pixels), image.Width, image.Height);
  Filename = filename;
  return true;
}

void CKelTexture::SetImage(std::unique_ptr<SKelTexturePixel[]> pixels, int width, int height) {
  Pixels = std::move(pixels);
  Width = width;
  Height = height;
}
