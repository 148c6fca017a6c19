#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/solids/brixBaseRevSurface.h"

/// A flat disk or ring in the local plane z = 0, facing the local +Z.
class QELVRML_EXPORT brixDisk : public brixBaseRevSurface {
public:
  void SetDisk(float innerRadius, float outerRadius, const brixMatrix4x4& placement, brixBool filled);
  float GetInnerRadius() const { return InnerRadius; }
  float GetOuterRadius() const { return OuterRadius; }
  const brixMatrix4x4& GetPlacement() const { return GetXformation(); }
  brixBool GetFilled() const { return Filled; }

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
