#pragma once

/// A colour; each component as a rule from 0 to 1.
class brixChroma {
public:
  constexpr brixChroma() = default;
  constexpr brixChroma(float r, float g, float b, float a) : red(r), green(g), blue(b), alpha(a) {}

  void SetAlpha(float value) { alpha = value; }

  float red = 0.0F;
  float green = 0.0F;
  float blue = 0.0F;
  float alpha = 1.0F;  ///< 1 is opaque
};
