#pragma once

#include "platform/brix/brixMaterial.h"

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
