#include "picture/Textures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "picture/Colour.h"

namespace {

/// A pixel as light times opacity, and opacity.
using LightPixel = std::array<float, 4>;

// Light of each share of 255.
std::array<float, 256> MakeLights() {
  std::array<float, 256> lights{};
  for (std::size_t i = 0; i < lights.size(); ++i) lights[i] = ToLight(static_cast<float>(i) / 255.0F);
  return lights;
}

LightPixel LightOf(const std::uint8_t* pixel) {
  static const std::array<float, 256> Lights = MakeLights();
  const float opacity = static_cast<float>(pixel[3]) / 255.0F;
  return {opacity * Lights[pixel[0]], opacity * Lights[pixel[1]], opacity * Lights[pixel[2]], opacity};
}

void Write(const LightPixel& light, std::uint8_t* pixel) {
  for (std::size_t i = 0; i < 3; ++i) pixel[i] = static_cast<std::uint8_t>(std::lround(255.0F * ToShare(light[i])));
  pixel[3] = static_cast<std::uint8_t>(std::lround(255.0F * light[3]));
}

std::size_t PixelOffset(const Image& image, int column, int row) {
  return 4 * (static_cast<std::size_t>(row) * static_cast<std::size_t>(image.Width) + static_cast<std::size_t>(column));
}

// Colours times opacity, so that invisible pixels don't colour those beside them when the texture is filtered.
void MultiplyByOpacity(Image& image) {
  for (std::size_t i = 0; i < image.Pixels.size(); i += 4) {
    std::uint8_t* pixel = &image.Pixels[i];
    if (pixel[3] != 255) Write(LightOf(pixel), pixel);
  }
}

// An image whose colours are multiplied by opacity already, at half its size; a side of one pixel stays.
Image Halved(const Image& image) {
  Image half;
  half.Width = std::max(1, image.Width / 2);
  half.Height = std::max(1, image.Height / 2);
  half.Pixels.resize(4 * static_cast<std::size_t>(half.Width) * static_cast<std::size_t>(half.Height));
  for (int row = 0; row < half.Height; ++row) {
    for (int column = 0; column < half.Width; ++column) {
      LightPixel mean{};
      for (const int part : {0, 1, 2, 3}) {
        const int x = std::min(2 * column + part % 2, image.Width - 1);
        const int y = std::min(2 * row + part / 2, image.Height - 1);
        const std::uint8_t* pixel = &image.Pixels[PixelOffset(image, x, y)];
        const LightPixel light = LightOf(std::array{pixel[0], pixel[1], pixel[2], std::uint8_t{255}}.data());
        for (std::size_t i = 0; i < 3; ++i) mean[i] += 0.25F * light[i];
        mean[3] += 0.25F * static_cast<float>(pixel[3]) / 255.0F;
      }
      Write(mean, &half.Pixels[PixelOffset(half, column, row)]);
    }
  }
  return half;
}

void Fill(const GlTexture& texture, Image image) {
  GLint largest = 0;
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
  MultiplyByOpacity(image);
  while (std::max(image.Width, image.Height) > largest) image = Halved(image);
  glBindTexture(GL_TEXTURE_2D, texture.Get());
  glTexImage2D(GL_TEXTURE_2D, 0, GL_SRGB8_ALPHA8, image.Width, image.Height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
               image.Pixels.data());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  glGenerateMipmap(GL_TEXTURE_2D);
  CheckGl();
}

GLint WrapOf(TextureWrapTypes wrap) { return wrap == TextureWrapClamp ? GL_CLAMP_TO_EDGE : GL_REPEAT; }

}  // namespace

Textures::Textures(const std::vector<Image>& images) : Names(images.size()) {
  for (std::size_t i = 0; i < images.size(); ++i) Fill(Names[i], images[i]);
}

void Textures::Bind(const TextureUse& use) const {
  glBindTexture(GL_TEXTURE_2D, Names[static_cast<std::size_t>(use.Texture)].Get());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, WrapOf(use.WrapS));
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, WrapOf(use.WrapT));
}
