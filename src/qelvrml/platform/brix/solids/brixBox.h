#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

/// A box by its eight corners in world coordinates: four around the bottom, then the four above them. At first all of
/// them are the origin.
class QELVRML_EXPORT brixBox : public brixBaseObject {
public:
  /// How many corners a box has.
  static constexpr unsigned CornerCount = 8;

  /// Takes the first eight points; corners that are missing stand at the origin.
  void SetBox(const brixFloatPointArray& corners);
  /// Always eight points.
  const brixFloatPointArray& GetCorners() const { return Corners; }

  const char* GetClassName() const override { return "brixBox"; }
  void Accept(brixObjectVisitor& visitor) const override;
  void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) override;
  brixBBox ComputeBBox() const override;
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  brixFloatPointArray Corners{static_cast<int>(CornerCount)};
};
