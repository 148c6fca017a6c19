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

/// Colours and shininess of a surface.
class brixMaterial {
public:
  void GetAmbient(brixChroma& colour) const { colour = Ambient; }
  void GetDiffuse(brixChroma& colour) const { colour = Diffuse; }
  void GetSpecular(brixChroma& colour) const { colour = Specular; }
  void GetEmission(brixChroma& colour) const { colour = Emission; }
  float GetShininess() const { return Shininess; }
  void SetAmbient(const brixChroma& colour) { Ambient = colour; }
  void SetDiffuse(const brixChroma& colour) { Diffuse = colour; }
  void SetSpecular(const brixChroma& colour) { Specular = colour; }
  void SetEmission(const brixChroma& colour) { Emission = colour; }
  /// From 0 to 128.
  void SetShininess(float shininess) { Shininess = shininess; }

private:
  brixChroma Ambient{0.2F, 0.2F, 0.2F, 1.0F};
  brixChroma Diffuse{0.8F, 0.8F, 0.8F, 1.0F};
  brixChroma Specular{0.0F, 0.0F, 0.0F, 1.0F};
  brixChroma Emission{0.0F, 0.0F, 0.0F, 1.0F};
  float Shininess = 0.0F;
};

/// The material of an object: that of its two sides, and how they are meant.
class brixMatProps {
public:
  brixMaterial& GetFrontMaterial() { return Front; }
  const brixMaterial& GetFrontMaterial() const { return Front; }
  brixMaterial& GetBackMaterial() { return Back; }
  const brixMaterial& GetBackMaterial() const { return Back; }
  int GetMode() const { return Mode; }
  void SetMode(int mode) { Mode = mode; }

private:
  brixMaterial Front;
  brixMaterial Back;
  int Mode = 0;  ///< 2: both sides are drawn
};
