#include "qelvrml/platform/brixex/shapes/CKelTriangleStrip.h"

#include <utility>

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/PointRange.h"
#include "qelvrml/platform/brixex/shapes/StripCoordinates.h"

CKelTriangleStrip::CKelTriangleStrip() : Coordinates(std::make_shared<const qelvrml::StripCoordinates>()) {}

void CKelTriangleStrip::SetPoints(const brixFloatPointArray& points, const brixVectorArray& normals) {
  ShareCoordinates(std::make_shared<const qelvrml::StripCoordinates>(points, normals));
}

void CKelTriangleStrip::ShareCoordinates(std::shared_ptr<const qelvrml::StripCoordinates> coordinates) {
  Coordinates = std::move(coordinates);
}

const brixFloatPointArray& CKelTriangleStrip::GetPoints() const { return Coordinates->GetPoints(); }
const brixVectorArray& CKelTriangleStrip::GetNormals() const { return Coordinates->GetNormals(); }

void CKelTriangleStrip::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

void CKelTriangleStrip::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/) {
  Coordinates = Coordinates->Move(matrix);
}

brixBBox CKelTriangleStrip::ComputeBBox() const { return Coordinates->GetBox(); }

brixEReturn CKelTriangleStrip::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  AddPoints(result);
  AddStrip(0, GetPoints().GetSize(), result);
  AddNormals(result);
  return result.Triangles.empty() ? brixEFailed : brixEOK;
}

std::size_t CKelTriangleStrip::CountTriangles(double /*chordTolerance*/) const {
  return TrianglesOfStrip(GetPoints().GetSize());
}

void CKelTriangleStrip::AddStrip(unsigned first, unsigned count, brixEvaluation& result) {
  for (unsigned i = 2; i < count; ++i) {
    const unsigned corner = first + i;
    const bool odd = i % 2 != 0;  // every second triangle runs the other way round
    result.Triangles.insert(result.Triangles.end(), {corner - (odd ? 1U : 2U), corner - (odd ? 2U : 1U), corner});
  }
}

void CKelTriangleStrip::AddPoints(brixEvaluation& result) const {
  result.Points.assign(GetPoints().View().begin(), GetPoints().View().end());
}

void CKelTriangleStrip::AddNormals(brixEvaluation& result) const {
  if (GetNormals().GetSize() != GetPoints().GetSize()) {
    qelvrml::ComputePointNormals(result);
    return;
  }
  result.Normals.assign(GetNormals().View().begin(), GetNormals().View().end());
  for (brixVector& normal : result.Normals) normal.Normalize();
}
