#pragma once

#include <cstdint>
#include <vector>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/polygons/brixComplexPolygon.h"
#include "qelvrml/platform/brixex/CKelList.h"

/// Makes polygons with holes out of loops in the plane z = 0.
class QELVRML_EXPORT CKelCpGenerator {
public:
  /// Adds a copy of the loop; its last point may be the first one again. Only x and y of the points count.
  void AddLoop(const brixFloatPointArray& loop);
  /// Finds out which loop is a hole of which: loops at even nesting depth are outlines, those directly inside them
  /// their holes. A loop without area is dropped; where loops cross, the areas between them alternate from outside to
  /// inside. False if nothing is left, as with more than 131,072 crossings. Raises std::bad_alloc.
  bool DetermineInteriorExteriorLoops();
  /// What cutting loops that cross took in the last call above, in steps of about a nanosecond.
  std::uint64_t GetCuttingSteps() const { return Steps; }
  /// Appends what the last call above has made to a list without an element handler, as pointers to new objects of
  /// brixComplexPolygon; the caller deletes them. One for which the list has no memory is left out.
  void CreateCompPolyList(CKelList& polygons);

private:
  std::vector<brixFloatPointArray> Loops;
  std::vector<brixComplexPolygon> Polygons;
  std::uint64_t Steps = 0;
};
