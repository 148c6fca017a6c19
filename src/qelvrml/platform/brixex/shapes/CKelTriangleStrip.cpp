#include "qelvrml/platform/brixex/shapes/CKelTriangleStrip.h"

#include "qelvrml/platform/brix/NormalMatrix.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/PointRange.h"

void CKelTriangleStrip::SetPoints(const brixFloatPointArray& points, const brixVectorArray& normals) {
  Points = points;
  Normals = normals;
}

void CKelTriangleStrip::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

void CKelTriangleStrip::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/) {
  qelvrml::Transform(Points.Edit(), matrix);
  const qelvrml::Matrix3x3 m = qelvrml::NormalMatrix(matrix);
  for (brixVector& n : Normals.Edit()) {
    const auto component = [&](std::size_t i) {
      return static_cast<float>(n.x * m[0][i] + n.y * m[1][i] + n.z * m[2][i]);
    };
    n = {component(0), component(1), component(2)};
    n.Normalize();
  }
}

brixBBox CKelTriangleStrip::ComputeBBox() const { return qelvrml::BoxOf(Points.View()); }

brixEReturn CKelTriangleStrip::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  AddPoints(result);
  AddStrip(0, Points.GetSize(), result);
  AddNormals(result);
  return result.Triangles.empty() ? brixEFailed : brixEOK;
}

void CKelTriangleStrip::AddStrip(unsigned first, unsigned count, brixEvaluation& result) {
  for (unsigned i = 2; i < count; ++i) {
    const unsigned corner = first + i;
    const bool odd = i % 2 != 0;  // every second triangle runs the other way round
    result.Triangles.insert(result.Triangles.end(), {corner - (odd ? 1U : 2U), corner - (odd ? 2U : 1U), corner});
  }
}

void CKelTriangleStrip::AddPoints(brixEvaluation& result) const {
  result.Points.assign(Points.View().begin(), Points.View().end());
}

void CKelTriangleStrip::AddNormals(brixEvaluation& result) const {
  if (Normals.GetSize() != Points.GetSize()) {
    qelvrml::ComputePointNormals(result);
    return;
  }
  result.Normals.assign(Normals.View().begin(), Normals.View().end());
  for (brixVector& normal : result.Normals) normal.Normalize();
}
