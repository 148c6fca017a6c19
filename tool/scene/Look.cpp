#include "scene/Look.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr float LargestShininess = 128.0F;

// Not-a-number gives 0.
float Bounded(float value, float most) { return value > 0.0F ? std::min(value, most) : 0.0F; }

std::array<float, 3> Bounded(const brixChroma& colour) {
  return {Bounded(colour.red, 1.0F), Bounded(colour.green, 1.0F), Bounded(colour.blue, 1.0F)};
}

auto AllOf(const Look& look) {
  return std::tie(look.Diffuse, look.Specular, look.Emission, look.Opacity, look.Shininess, look.Texture, look.WrapS,
                  look.WrapT);
}

}  // namespace

bool operator<(const Look& a, const Look& b) { return AllOf(a) < AllOf(b); }

Look LookOf(const brixMaterial& material) {
  Look look;
  brixChroma colour;
  material.GetSpecular(colour);
  look.Specular = Bounded(colour);
  material.GetEmission(colour);
  look.Emission = Bounded(colour);
  material.GetDiffuse(colour);
  look.Diffuse = Bounded(colour);
  look.Opacity = Bounded(colour.alpha, 1.0F);
  look.Shininess = Bounded(material.GetShininess(), LargestShininess);
  return look;
}

std::array<float, 3> LineColour(const Look& look) {
  return look.Emission == std::array<float, 3>{} ? look.Diffuse : look.Emission;
}
