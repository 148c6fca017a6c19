#pragma once

#include "platform/brix/brixChroma.h"

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
