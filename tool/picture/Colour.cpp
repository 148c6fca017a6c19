#include "picture/Colour.h"

#include <algorithm>
#include <cmath>

namespace {

// Lines whose contrast is below the least one are hard to see; they get the good one.
constexpr float LeastContrast = 1.35F;
constexpr float GoodContrast = 3.0F;
constexpr float Glare = 0.05F;  // light that a screen has anywhere, in the usual formula of contrast

using Light = std::array<float, 3>;

// How bright the eye finds it, by the weights of sRGB's primaries.
float Luminance(const Light& light) { return 0.2126F * light[0] + 0.7152F * light[1] + 0.0722F * light[2]; }

Light LightOf(const float* colour) { return {ToLight(colour[0]), ToLight(colour[1]), ToLight(colour[2])}; }

}  // namespace

float ToLight(float share) { return share <= 0.04045F ? share / 12.92F : std::pow((share + 0.055F) / 1.055F, 2.4F); }

float ToShare(float light) {
  return light <= 0.0031308F ? light * 12.92F : 1.055F * std::pow(light, 1.0F / 2.4F) - 0.055F;
}

std::array<float, 3> StandOut(const std::array<float, 3>& colour, const std::array<float, 4>& background) {
  if (background[3] == 0.0F) return colour;
  Light light = LightOf(colour.data());
  const float own = Luminance(light) + Glare;
  const float other = Luminance(LightOf(background.data())) + Glare;
  if (std::max(own, other) / std::min(own, other) >= LeastContrast) return colour;
  if (other / GoodContrast >= Glare) {
    const float factor = (other / GoodContrast - Glare) / (own - Glare);
    for (float& l : light) l *= std::min(factor, 1.0F);
  } else {
    const float white = (other * GoodContrast - own) / (1.0F + Glare - own);
    for (float& l : light) l += (1.0F - l) * std::min(white, 1.0F);
  }
  return {ToShare(light[0]), ToShare(light[1]), ToShare(light[2])};
}
