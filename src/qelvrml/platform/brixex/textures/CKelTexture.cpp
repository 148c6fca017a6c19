#include "qelvrml/platform/brixex/textures/CKelTexture.h"

#include <new>
#include <string_view>

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
  qelvrml::Image image = qelvrml::DecodeImage({block->begin(), block->GetSize()}, MostPixels);
  if (!image.Pixels) return false;
  Pixels = std::move(image.Pixels);
  Width = image.Width;
  Height = image.Height;
  Filename = filename;
  return true;
}
