#pragma once

#include <array>

#include "qelvrml/platform/brix/brixMaterial.h"
#include "qelvrml/platform/brixex/textures/CKelTextureTypes.h"

/// What a part looks like. Colours are red, green and blue from 0 to 1, as a screen shows them (sRGB).
struct Look {
  static constexpr int NoTexture = -1;

  std::array<float, 3> Diffuse{};
  std::array<float, 3> Specular{};
  std::array<float, 3> Emission{};
  float Opacity = 1.0F;     ///< from 0 to 1
  float Shininess = 0.0F;   ///< exponent of the specular reflection, from 0 to 128
  int Texture = NoTexture;  ///< index of an image of the scene
  TextureWrapTypes WrapS = TextureWrapRepeat;
  TextureWrapTypes WrapT = TextureWrapRepeat;

  bool operator==(const Look& other) const = default;
};

/// Some order, for maps.
bool operator<(const Look& a, const Look& b);

/// The look that a material gives, without a texture; what is out of range or no number is brought into it.
Look LookOf(const brixMaterial& material);

/// Colour of lines and dots, which no light falls on: what they emit, else the diffuse one.
std::array<float, 3> LineColour(const Look& look);
