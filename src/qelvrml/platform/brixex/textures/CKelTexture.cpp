#include "qelvrml/platform/brixex/textures/CKelTexture.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "qelvrml/platform/brixex/textures/ImageFile.h"
#include "qelvrml/platform/fileint/CKelFileInterface.h"
#include "qelvrml/platform/fileint/FileText.h"

bool CKelTexture::AllocatePixelArray(unsigned int count) {
  Pixels.reset();
  if (count > MostPixels) return false;
  Pixels = qelvrml::MakePixels(count);
  PixelCount = count;
  return Pixels != nullptr;
}

SKelTexturePixel* CKelTexture::GetPixelArray() {
  if (Pixels.use_count() > 1) {
    SKelTexturePixelArray own = qelvrml::MakePixels(PixelCount);
    if (own) std::copy_n(Pixels.get(), PixelCount, own.get());
    Pixels = std::move(own);
  }
  return Pixels.get();
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

void CKelTexture::SetImage(SKelTexturePixelArray pixels, int width, int height) {
  Pixels = std::move(pixels);
  PixelCount = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  Width = width;
  Height = height;
}

void CKelTexture::ShareImage(const CKelTexture& other) {
  Pixels = other.Pixels;
  PixelCount = other.PixelCount;
  Width = other.Width;
  Height = other.Height;
}
