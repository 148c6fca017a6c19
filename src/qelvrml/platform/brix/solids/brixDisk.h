#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/solids/brixBaseRevSurface.h"

/// A flat disk or ring in the local plane z = 0, facing the local +Z. At first it is a filled disk of the radius 1.
class QELVRML_EXPORT brixDisk : public brixBaseRevSurface {
public:
  /// Sets the local radii and, as SetXformation does, the matrix that places them. With an inner radius of 0 it is a
  /// disk, else a ring; signs and order of the radii don't matter. One that isn't filled is its outer circle alone.
  void SetDisk(float innerRadius, float outerRadius, const brixMatrix4x4& placement, brixBool filled);
  /// The shape as it was set.
  /// @{
  float GetInnerRadius() const { return InnerRadius; }
  float GetOuterRadius() const { return OuterRadius; }
  const brixMatrix4x4& GetPlacement() const { return GetXformation(); }
  brixBool GetFilled() const { return Filled; }
  /// @}

  const char* GetClassName() const override { return "brixDisk"; }
  void Accept(brixObjectVisitor& visitor) const override;
  brixBBox ComputeBBox() const override;
  /// Triangles of a filled disk, the outline's segments of another.
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  float InnerRadius = 0.0F;
  float OuterRadius = 1.0F;
  brixBool Filled = brixTrue;
};
