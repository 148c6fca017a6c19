#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"

#include <algorithm>
#include <span>
#include <vector>

#include "qelvrml/platform/brixex/shapes/PointRange.h"

void CKelPolyface::SetPoints(const brixFloatPointArray& points, const brixIntArray& faces, bool compress) {
  Points = points;
  Faces = faces;
  Compress = compress;
}

void CKelPolyface::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) {
  ApplyMatrixToGeometry(matrix, updateBox, true);
}

void CKelPolyface::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/, bool /*recompute*/) {
  qelvrml::Transform(Points.Edit(), matrix);
}

brixBBox CKelPolyface::ComputeBBox() const { return qelvrml::BoxOf(Points.View()); }

brixEReturn CKelPolyface::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  std::vector<brixFloatPoint> outline;
  for (std::span<const int> left = Faces.View(); !left.empty();) {
    const auto count = std::min(static_cast<std::size_t>(std::max(left[0], 0)), left.size() - 1);
    outline.clear();
    for (const int index : left.subspan(1, count)) {
      if (index >= 0 && static_cast<unsigned>(index) < Points.GetSize())
        outline.push_back(Points.View()[static_cast<std::size_t>(index)]);
    }
    qelvrml::AddPolygon(outline, result);
    left = left.subspan(count + 1);
  }
  return result.Triangles.empty() ? brixEFailed : brixEOK;
}
