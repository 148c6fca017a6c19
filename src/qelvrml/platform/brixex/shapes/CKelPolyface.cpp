#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"

#include <vector>

#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/PointBlocks.h"
#include "qelvrml/platform/brixex/shapes/PointRange.h"

namespace {

bool IsIn(std::span<const brixFloatPoint> points, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < points.size();
}

// The points of a face, without those that aren't there.
void TakeOutline(std::span<const int> indices, std::span<const brixFloatPoint> points,
                 std::vector<brixFloatPoint>& outline) {
  outline.clear();
  for (const int index : indices) {
    if (IsIn(points, index)) outline.push_back(points[static_cast<std::size_t>(index)]);
  }
}

}  // namespace

void CKelPolyface::SetPoints(const brixFloatPointArray& points, const brixIntArray& faces, bool compress) {
  Points = points;
  Faces = faces;
  Compress = compress;
}

void CKelPolyface::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

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
  for (const brixRun& face : brixRunList(Faces)) {
    TakeOutline(face.Indices, Points.View(), outline);
    qelvrml::AddPolygon(outline, result);
  }
  return result.Triangles.empty() ? brixEFailed : brixEOK;
}

std::size_t CKelPolyface::CountTriangles(double /*chordTolerance*/) const {
  const std::span<const brixFloatPoint> points = Points.View();
  std::size_t triangles = 0;
  std::vector<brixFloatPoint> outline;
  for (const brixRun& face : brixRunList(Faces)) {
    const std::span<const int> corners = face.Indices;
    if (corners.size() == 3 && IsIn(points, corners[0]) && IsIn(points, corners[1]) && IsIn(points, corners[2])) {
      ++triangles;
      continue;
    }
    TakeOutline(corners, points, outline);
    triangles += qelvrml::CountPolygonTriangles(outline);
  }
  return triangles;
}
