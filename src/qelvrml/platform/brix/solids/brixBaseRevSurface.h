#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

/// Base of the surfaces of revolution: a profile that turns about the local Z axis, placed by a matrix.
class QELVRML_EXPORT brixBaseRevSurface : public brixBaseObject {
public:
  /// In radians and single precision, and a little above 2 pi and pi, so that a whole surface has no gap.
  /// @{
  static constexpr float WholeTurn = 6.283186F;
  static constexpr float HalfTurn = 3.141593F;
  /// @}

  /// The matrix that the surface is evaluated with, from its local coordinates to those of the world; the identity at
  /// first. The surface's parameters stay local.
  /// @{
  void SetXformation(const brixMatrix4x4& matrix) { Xformation = matrix; }
  const brixMatrix4x4& GetXformation() const { return Xformation; }
  /// @}

  /// Multiplies the surface's matrix from the right.
  void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) override;

private:
  brixMatrix4x4 Xformation;
};
