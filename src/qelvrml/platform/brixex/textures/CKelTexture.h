#pragma once

#include <cstddef>
#include <memory>

#include "qelvrml/foundation/CBasicString.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brixex/textures/CKelTextureTypes.h"

/// The image of a texture: rows of pixels from left to right. Those of an image file stand from the top down, those of
/// a PixelTexture node in the order of its values, which VRML gives from the bottom up.
///
/// Several threads can read a texture, and textures that share an image, as long as nobody changes one of them.
class QELVRML_EXPORT CKelTexture {
public:
  /// Most pixels that a texture can have.
  static constexpr unsigned int MostPixels = 67'108'864;

  /// No image and no name.
  CKelTexture() = default;
  CKelTexture(const CKelTexture&) = delete;
  CKelTexture& operator=(const CKelTexture&) = delete;
  virtual ~CKelTexture() = default;

  /// Reads the image of a PNG, JPEG or GIF file and takes the file's name. False for a file that can't be read or
  /// decoded, for an image of more than MostPixels, and for one whose size is out of all proportion to its file's; the
  /// texture then stays as it was. Raises std::bad_alloc when there is no memory for the file.
  bool GenerateTextureFromFile(const CBasicString& filename);
  /// Makes room for `count` pixels, all zero, without setting the size; false, and no room any more, for more than
  /// MostPixels and when there is no memory.
  bool AllocatePixelArray(unsigned int count);
  /// Null without room; else as many pixels as were asked for, owned by the texture until it gets others. To write
  /// them, pixels that another texture has as well become this one's own, and are gone if there is no memory for that.
  /// @{
  SKelTexturePixel* GetPixelArray();
  const SKelTexturePixel* GetPixelArray() const { return Pixels.get(); }
  /// @}

  /// Takes over an image of `width` x `height` pixels; neither size is negative.
  void SetImage(SKelTexturePixelArray pixels, int width, int height);
  /// Takes the size and the pixels of another texture, which both have until one asks to write them.
  void ShareImage(const CKelTexture& other);

  /// Size in pixels. To set it doesn't change the pixels that there are.
  /// @{
  int GetWidth() const { return Width; }
  void SetWidth(int width) { Width = width; }
  int GetHeight() const { return Height; }
  void SetHeight(int height) { Height = height; }
  /// @}
  /// -1 until a texture manager has taken the texture over and given it a number from 1 on.
  /// @{
  int GetTextureID() const { return TextureID; }
  void SetTextureID(int id) { TextureID = id; }
  /// @}
  /// Path of the image's file, by which a texture manager finds the texture; empty for one made of pixels.
  /// @{
  const CBasicString& GetFilename() const { return Filename; }
  void SetFilename(const CBasicString& name) { Filename = name; }
  /// @}

private:
  std::shared_ptr<SKelTexturePixel[]> Pixels;
  std::size_t PixelCount = 0;
  int Width = 0;
  int Height = 0;
  int TextureID = -1;
  CBasicString Filename;
};
