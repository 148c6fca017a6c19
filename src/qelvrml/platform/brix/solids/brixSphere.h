#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brix/solids/brixBaseRevSurface.h"

/// A sphere, or a part of one between two meridians and two parallels. At first it is a whole one of the radius 1 about
/// the local origin.
class QELVRML_EXPORT brixSphere : public brixBaseRevSurface {
public:
  /// Sets the local shape. All angles are in radians and rise: the turn about `polarAxis` counts from `startDirection`,
  /// the polar angle from the axis. The two directions are unit vectors at right angles. With a negative radius each
  /// point lies opposite; the surface faces outward all the same.
  void SetSphere(const brixFloatPoint& centre, const brixVector& startDirection, const brixVector& polarAxis,
                 float radius, float startTurn, float endTurn, float startPolar, float endPolar);
  /// The shape as it was set.
  /// @{
  const brixFloatPoint& GetCentre() const { return Centre; }
  const brixVector& GetStartDirection() const { return StartDirection; }
  const brixVector& GetPolarAxis() const { return PolarAxis; }
  float GetRadius() const { return Radius; }
  float GetStartTurn() const { return StartTurn; }
  float GetEndTurn() const { return EndTurn; }
  float GetStartPolar() const { return StartPolar; }
  float GetEndPolar() const { return EndPolar; }
  /// @}

  const char* GetClassName() const override { return "brixSphere"; }
  void Accept(brixObjectVisitor& visitor) const override;
  brixBBox ComputeBBox() const override;
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  brixFloatPoint Centre;
  brixVector StartDirection{1.0F, 0.0F, 0.0F};
  brixVector PolarAxis{0.0F, 0.0F, 1.0F};
  float Radius = 1.0F;
  float StartTurn = 0.0F;
  float EndTurn = WholeTurn;
  float StartPolar = 0.0F;
  float EndPolar = HalfTurn;
};
