#include "platform/brixex/CKelTexture.h"

#include <new>

bool CKelTexture::AllocatePixelArray(unsigned int count) {
  Pixels.reset();
  if (count > MostPixels) return false;
  Pixels.reset(new (std::nothrow) SKelTexturePixel[count]());
  return Pixels != nullptr;
}
