#include "convert/gltf/GltfMaterials.h"

#include <array>
#include <cmath>

namespace {

using Rgb = std::array<float, 3>;

// From what a screen shows to what light adds up by: the transfer function of sRGB, IEC 61966-2-1.
float Linear(float shown) { return shown <= 0.04045F ? shown / 12.92F : std::pow((shown + 0.055F) / 1.055F, 2.4F); }

Rgb Linear(const Rgb& c) { return {Linear(c[0]), Linear(c[1]), Linear(c[2])}; }

// The roughness whose highlight is as wide as that of a Blinn-Phong exponent n: alpha^2 = 2 / (n + 2), with
// alpha = roughness^2 (Walter et al., Microfacet Models for Refraction through Rough Surfaces, 2007).
double Roughness(double exponent) { return std::pow(2.0 / (exponent + 2.0), 0.25); }

JsonObject Reflection(const Rgb& colour, float opacity, double roughness) {
  const Rgb base = Linear(colour);
  JsonObject reflection;
  reflection.Add("baseColorFactor", NumberList(std::array{base[0], base[1], base[2], opacity}))
      .Add("metallicFactor", std::size_t{0})
      .Add("roughnessFactor", NumberText(roughness));
  return reflection;
}

std::size_t WrapValue(TextureWrapTypes wrap) {
  constexpr std::size_t ClampToEdge = 33071;
  constexpr std::size_t Repeat = 10497;
  return wrap == TextureWrapRepeat ? Repeat : ClampToEdge;
}

}  // namespace

std::size_t GltfMaterials::OfSurface(const Look& look) {
  if (const auto known = SurfaceIndices.find(look); known != SurfaceIndices.end()) return known->second;
  JsonObject reflection = Reflection(look.Diffuse, look.Opacity, Roughness(look.Shininess));
  if (look.Texture != Look::NoTexture) {
    reflection.Add("baseColorTexture", JsonObject().Add("index", TextureOf(look)).Text());
  }
  JsonObject material;
  if (look.Emission != Rgb{}) material.Add("emissiveFactor", NumberList(Linear(look.Emission)));
  return SurfaceIndices[look] = Add(look, reflection, std::move(material));
}

std::size_t GltfMaterials::OfLines(const Look& look) {
  if (const auto known = LineIndices.find(look); known != LineIndices.end()) return known->second;
  JsonObject material;
  material.Add("extensions", R"({"KHR_materials_unlit":{}})");
  return LineIndices[look] = Add(look, Reflection(LineColour(look), look.Opacity, 1.0), std::move(material));
}

std::size_t GltfMaterials::Add(const Look& look, const JsonObject& reflection, JsonObject material) {
  const bool textured = look.Texture != Look::NoTexture;
  const bool blended = look.Opacity < 1.0F || (textured && TransparentImages[static_cast<std::size_t>(look.Texture)]);
  if (blended) material.Add("alphaMode", Quoted("BLEND"));
  material.Add("pbrMetallicRoughness", reflection.Text()).Add("doubleSided", "true");
  return Materials.Add(material.Text());
}

std::size_t GltfMaterials::TextureOf(const Look& look) {
  const std::size_t sampler = SamplerOf(look.WrapS, look.WrapT);
  const auto [place, isNew] = TextureIndices.try_emplace({look.Texture, sampler});
  if (isNew) {
    JsonObject texture;
    texture.Add("source", static_cast<std::size_t>(look.Texture)).Add("sampler", sampler);
    place->second = Textures.Add(texture.Text());
  }
  return place->second;
}

std::size_t GltfMaterials::SamplerOf(TextureWrapTypes wrapS, TextureWrapTypes wrapT) {
  const auto [place, isNew] = SamplerIndices.try_emplace({wrapS, wrapT});
  if (isNew) {
    JsonObject sampler;
    sampler.Add("wrapS", WrapValue(wrapS)).Add("wrapT", WrapValue(wrapT));
    place->second = Samplers.Add(sampler.Text());
  }
  return place->second;
}
