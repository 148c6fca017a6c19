#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/solids/brixBaseRevSurface.h"

/// The side of a cone or of a frustum, without its base. Its axis is the local +Z, its base stands in the plane z = 0.
class QELVRML_EXPORT brixCone : public brixBaseRevSurface {
public:
  /// Sets the local sizes: 1, 1 and 0 at first. A negative height puts the top below the base, a negative radius counts
  /// on the other side of the axis; the surface faces outward all the same.
  void SetCone(float height, float bottomRadius, float topRadius);
  /// The sizes as they were set.
  /// @{
  float GetHeight() const { return Height; }
  float GetBottomRadius() const { return BottomRadius; }
  float GetTopRadius() const { return TopRadius; }
  /// @}

  const char* GetClassName() const override { return "brixCone"; }
  void Accept(brixObjectVisitor& visitor) const override;
  brixBBox ComputeBBox() const override;
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  float Height = 1.0F;
  float BottomRadius = 1.0F;
  float TopRadius = 0.0F;
};
