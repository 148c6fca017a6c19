#include "qelvrml/platform/brix/solids/brixBox.h"

#include <algorithm>
#include <array>

#include "qelvrml/platform/brix/brixVector.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"

namespace {

// Corners of each side, counter-clockwise seen from outside.
constexpr std::array<std::array<unsigned, 4>, 6> Sides = {
    {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {2, 3, 7, 6}, {1, 2, 6, 5}, {0, 4, 7, 3}}};

// Whether the corners lie as in a mirror, so that the sides run the other way round.
bool Mirrored(const brixFloatPointArray& corners) {
  const brixVector along(corners[0], corners[1]);
  const brixVector up(corners[0], corners[3]);
  return DotProduct(CrossProduct(along, up), brixVector(corners[0], corners[4])) < 0.0;
}

}  // namespace

void brixBox::SetBox(const brixFloatPointArray& corners) {
  Corners = corners;
  Corners.Realloc(CornerCount, brixTrue);
}

void brixBox::Accept(brixObjectVisitor& visitor) const { visitor.Visit(*this); }

void brixBox::ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool /*updateBox*/) {
  for (brixFloatPoint& corner : Corners.Edit()) corner = corner * matrix;
}

brixBBox brixBox::ComputeBBox() const {
  brixBBox box;
  for (const brixFloatPoint& corner : Corners.View()) box.Add(corner);
  return box;
}

brixEReturn brixBox::Evaluate(double /*chordTolerance*/, brixEvaluation& result) const {
  result = {};
  const brixFloatPointArray& corners = Corners;
  const bool mirrored = Mirrored(corners);
  for (std::array<unsigned, 4> side : Sides) {
    if (mirrored) std::reverse(side.begin(), side.end());
    brixVector normal =
        CrossProduct(brixVector(corners[side[0]], corners[side[2]]), brixVector(corners[side[1]], corners[side[3]]));
    normal.Normalize();
    const auto first = static_cast<unsigned>(result.Points.size());
    for (const unsigned corner : side) {
      result.Points.push_back(corners[corner]);
      result.Normals.push_back(normal);
    }
    result.Triangles.insert(result.Triangles.end(), {first, first + 1, first + 2, first, first + 2, first + 3});
  }
  return brixEOK;
}

std::size_t brixBox::CountTriangles(double /*chordTolerance*/) const { return 2 * Sides.size(); }
