#pragma once

#include <vector>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/brixBool.h"

/// Triangles of a polygon with holes.
struct brixComplexOutput {
  brixFloatPointArray Points;  ///< those of the outline, then those of each hole
  brixIntArray Corners;        ///< three indices into Points for each triangle, counter-clockwise seen from +Z
  int TriangleCount = 0;       ///< a third of the number of corners
};

/// An outline with its holes, all in the plane z = 0.
class QELVRML_EXPORT brixComplexPolygon {
public:
  /// Takes rings without a repeated last point, in either direction; no hole crosses the outline or another hole. Only
  /// x and y of the points count.
  brixComplexPolygon(brixFloatPointArray outline, std::vector<brixFloatPointArray> holes);
  /// A copy shares the storage of the points.
  /// @{
  brixComplexPolygon(const brixComplexPolygon&) = default;
  brixComplexPolygon& operator=(const brixComplexPolygon&) = default;
  /// @}
  virtual ~brixComplexPolygon() = default;

  /// The rings as they were given.
  /// @{
  const brixFloatPointArray& GetOutline() const { return Outline; }
  const std::vector<brixFloatPointArray>& GetHoles() const { return Holes; }
  /// @}

  /// Fills `output` anew with a triangulation. brixEFailed for null, and without triangles if there is none. Takes the
  /// time of sorting the points. Raises std::bad_alloc.
  brixEReturn Evaluate(brixComplexOutput* output) const;

private:
  brixFloatPointArray Outline;
  std::vector<brixFloatPointArray> Holes;
};
