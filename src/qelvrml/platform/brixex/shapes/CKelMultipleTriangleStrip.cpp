#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"

#include <algorithm>

void CKelMultipleTriangleStrip::SetStrips(const brixFloatPointArray& points, const brixVectorArray& normals,
                                          const brixIntArray& counts) {
  SetPoints(points, normals);
  Counts = counts;
  auto left = static_cast<int>(points.GetSize());
  for (int& count : Counts.Edit()) {
    count = std::clamp(count, 0, left);
    left -= count;
  }
}

brixEReturn CKelMultipleTriangleStrip::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  AddPoints(result);
  unsigned first = 0;
  for (const int count : Counts.View()) {
    AddStrip(first, static_cast<unsigned>(count), result);
    first += static_cast<unsigned>(count);
  }
  AddNormals(result);
  return result.Triangles.empty() ? brixEFailed : brixEOK;
}
