#include "qelvrml/platform/brixex/CKelCpGenerator.h"

#include <memory>
#include <new>

#include "qelvrml/platform/brix/polygons/LoopGroups.h"

namespace {

brixFloatPointArray ToPoints(const qelvrml::PlanarRing& ring) {
  brixFloatPointArray points;
  for (const qelvrml::PlanarPoint& p : ring) points.Append({static_cast<float>(p[0]), static_cast<float>(p[1]), 0.0F});
  return points;
}

}  // namespace

void CKelCpGenerator::AddLoop(const brixFloatPointArray& loop) { Loops.push_back(loop); }

bool CKelCpGenerator::DetermineInteriorExteriorLoops() {
  std::vector<qelvrml::PlanarRing> rings;
  for (const brixFloatPointArray& loop : Loops) rings.push_back(qelvrml::ToRing(loop));
  Polygons.clear();
  const qelvrml::LoopGroups groups = qelvrml::GroupLoops(rings);
  Steps = groups.Steps;
  for (const qelvrml::PlanarPolygon& polygon : groups.Polygons) {
    std::vector<brixFloatPointArray> holes;
    for (const qelvrml::PlanarRing& hole : polygon.Holes) holes.push_back(ToPoints(hole));
    Polygons.emplace_back(ToPoints(polygon.Outline), std::move(holes));
  }
  return !Polygons.empty();
}

void CKelCpGenerator::CreateCompPolyList(CKelList& polygons) {
  for (const brixComplexPolygon& polygon : Polygons) {
    auto copy = std::make_unique<brixComplexPolygon>(polygon);
    if (polygons.AddTail(copy.get())) copy.release();
  }
}
