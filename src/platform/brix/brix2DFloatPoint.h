#pragma once

/// Two numbers in single precision: a texture coordinate, or a 2-D scale or translation.
class brix2DFloatPoint {
public:
  constexpr brix2DFloatPoint() = default;
  constexpr brix2DFloatPoint(float px, float py) : x(px), y(py) {}

  float x = 0.0F;
  float y = 0.0F;
};
