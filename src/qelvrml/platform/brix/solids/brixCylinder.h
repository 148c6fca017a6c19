#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brix/solids/brixBaseRevSurface.h"

/// The side of a cylinder, or a part of it, without its ends. At first it is whole, of radius and height 1. Its axis is
/// the local +Z, its base stands in the plane z = 0.
class QELVRML_EXPORT brixCylinder : public brixBaseRevSurface {
public:
  /// Sets the local shape. `ratio` is the top's radius by the base's; the angles, in radians and rising, count from
  /// `startDirection`, a unit vector of the XY plane. Negative sizes are treated as those of a cone.
  void SetCylinder(float height, float radius, float ratio, const brixVector& startDirection, float startAngle,
                   float endAngle);
  /// The shape as it was set.
  /// @{
  float GetHeight() const { return Height; }
  float GetRadius() const { return Radius; }
  float GetRatio() const { return Ratio; }
  const brixVector& GetStartDirection() const { return StartDirection; }
  float GetStartAngle() const { return StartAngle; }
  float GetEndAngle() const { return EndAngle; }
  /// @}

  const char* GetClassName() const override { return "brixCylinder"; }
  void Accept(brixObjectVisitor& visitor) const override;
  brixBBox ComputeBBox() const override;
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  float Height = 1.0F;
  float Radius = 1.0F;
  float Ratio = 1.0F;
  brixVector StartDirection{1.0F, 0.0F, 0.0F};
  float StartAngle = 0.0F;
  float EndAngle = WholeTurn;
};
