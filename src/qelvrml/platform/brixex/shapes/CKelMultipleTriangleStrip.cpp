#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"

#include <algorithm>
#include <utility>

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/StripCoordinates.h"

void CKelMultipleTriangleStrip::SetStrips(const brixFloatPointArray& points, const brixVectorArray& normals,
                                          const brixIntArray& counts) {
  ShareStrips(std::make_shared<const qelvrml::StripCoordinates>(points, normals), counts);
}

void CKelMultipleTriangleStrip::ShareStrips(std::shared_ptr<const qelvrml::StripCoordinates> coordinates,
                                            const brixIntArray& counts) {
  ShareCoordinates(std::move(coordinates));
  Counts = counts;
  auto left = static_cast<int>(GetPoints().GetSize());
  for (int& count : Counts.Edit()) {
    count = std::clamp(count, 0, left);
    left -= count;
  }
}

void CKelMultipleTriangleStrip::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

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

std::size_t CKelMultipleTriangleStrip::CountTriangles(double /*chordTolerance*/) const {
  std::size_t triangles = 0;
  for (const int count : Counts.View()) triangles += TrianglesOfStrip(static_cast<std::size_t>(count));
  return triangles;
}
