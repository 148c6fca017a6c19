#pragma once

#include <vector>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/brixBool.h"

/// Triangles of a polygon with holes.
struct brixComplexOutput {
  brixFloatPointArray Points;
  brixIntArray Corners;  ///< three indices into Points for each triangle, counter-clockwise seen from +Z
  int TriangleCount = 0;
};

/// An outline with its holes, all in the plane z = 0.
class QELVRML_EXPORT brixComplexPolygon {
public:
  /// `outline` and `holes` are rings without a repeated last point; no hole crosses the outline or another hole.
  brixComplexPolygon(brixFloatPointArray outline, std::vector<brixFloatPointArray> holes);
  brixComplexPolygon(const brixComplexPolygon&) = default;
  brixComplexPolygon& operator=(const brixComplexPolygon&) = default;
  virtual ~brixComplexPolygon() = default;

  const brixFloatPointArray& GetOutline() const { return Outline; }
  const std::vector<brixFloatPointArray>& GetHoles() const { return Holes; }

  /// Fills `output` with a triangulation; without triangles if there is none.
  brixEReturn Evaluate(brixComplexOutput* output) const;

private:
  brixFloatPointArray Outline;
  std::vector<brixFloatPointArray> Holes;
};
