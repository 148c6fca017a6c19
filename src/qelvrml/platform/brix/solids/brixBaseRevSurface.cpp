#include "qelvrml/platform/brix/solids/brixBaseRevSurface.h"

void brixBaseRevSurface::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/) {
  Xformation = Xformation * matrix;
}
