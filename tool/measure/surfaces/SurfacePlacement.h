#pragma once

#include <array>

#include "qelvrml/platform/brix/brixMatrix4x4.h"
#include "scene/Vector3.h"

/// What a matrix does to surfaces about the local Z axis. What faces outward does so also where the matrix mirrors.
class SurfacePlacement {
public:
  explicit SurfacePlacement(const brixMatrix4x4& matrix);

  /// Where a place on the axis comes to.
  Vector3 OnAxis(double z) const { return Origin + z * Axis; }
  /// What a volume of 1 becomes.
  double GetVolume() const { return Volume; }
  /// What an area of 1 becomes that faces along the axis.
  const Vector3& GetAxialArea() const { return Areas[2]; }
  /// What areas of 1 become, without their directions and as a mean of those that face so far away from the axis and so
  /// far along it, where these two make the length 1; of other lengths as many times that.
  double MeanArea(double away, double along) const;

private:
  Vector3 Origin;
  Vector3 Axis;
  double Volume;
  std::array<Vector3, 3> Areas;  ///< what areas of 1 become that face along the local axes: cofactors
};
