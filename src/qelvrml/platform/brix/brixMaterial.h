#pragma once

/// A colour; each component as a rule from 0 to 1.
class brixChroma {
public:
  /// Opaque black.
  constexpr brixChroma() = default;
  /// The colour of these components, which are taken as they are.
  constexpr brixChroma(float r, float g, float b, float a) : red(r), green(g), blue(b), alpha(a) {}

  /// Changes the opacity alone.
  void SetAlpha(float value) { alpha = value; }

  float red = 0.0F;    ///< share of red
  float green = 0.0F;  ///< share of green
  float blue = 0.0F;   ///< share of blue
  float alpha = 1.0F;  ///< opacity; 1 is opaque
};

/// Colours and shininess of a surface. A new one is a dull grey: ambient 0.2, diffuse 0.8, the rest black.
class brixMaterial {
public:
  /// Puts one of the colours into `colour`: what is reflected of light from everywhere (ambient), from a lamp in all
  /// directions (diffuse) and as in a mirror (specular), and what the surface emits.
  /// @{
  void GetAmbient(brixChroma& colour) const { colour = Ambient; }
  void GetDiffuse(brixChroma& colour) const { colour = Diffuse; }
  void GetSpecular(brixChroma& colour) const { colour = Specular; }
  void GetEmission(brixChroma& colour) const { colour = Emission; }
  /// @}
  /// Exponent of the specular reflection, as a rule from 0 to 128; higher is sharper.
  float GetShininess() const { return Shininess; }
  /// Replaces one of the colours, which is taken as it is.
  /// @{
  void SetAmbient(const brixChroma& colour) { Ambient = colour; }
  void SetDiffuse(const brixChroma& colour) { Diffuse = colour; }
  void SetSpecular(const brixChroma& colour) { Specular = colour; }
  void SetEmission(const brixChroma& colour) { Emission = colour; }
  /// @}
  /// Replaces the exponent, which is taken as it is.
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
  /// The material of the side that normals point to, the front, or of the other. A load gives both the same values.
  /// @{
  brixMaterial& GetFrontMaterial() { return Front; }
  const brixMaterial& GetFrontMaterial() const { return Front; }
  brixMaterial& GetBackMaterial() { return Back; }
  const brixMaterial& GetBackMaterial() const { return Back; }
  /// @}
  /// How the two are meant: 2 draws both sides, which a load always gives; 0 in a new record.
  /// @{
  int GetMode() const { return Mode; }
  void SetMode(int mode) { Mode = mode; }
  /// @}

private:
  brixMaterial Front;
  brixMaterial Back;
  int Mode = 0;  ///< 2: both sides are drawn
};
