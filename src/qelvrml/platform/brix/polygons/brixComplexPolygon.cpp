#include "qelvrml/platform/brix/polygons/brixComplexPolygon.h"

#include <utility>

#include "qelvrml/platform/brix/polygons/PolygonTriangles.h"

brixComplexPolygon::brixComplexPolygon(brixFloatPointArray outline, std::vector<brixFloatPointArray> holes)
    : Outline(std::move(outline)), Holes(std::move(holes)) {}

brixEReturn brixComplexPolygon::Evaluate(brixComplexOutput* output) const {
  if (!output) return brixEFailed;
  *output = {};
  qelvrml::PlanarPolygon polygon;
  polygon.Outline = qelvrml::ToRing(Outline);
  for (const brixFloatPoint& point : Outline.View()) output->Points.Append(point);
  for (const brixFloatPointArray& hole : Holes) {
    polygon.Holes.push_back(qelvrml::ToRing(hole));
    for (const brixFloatPoint& point : hole.View()) output->Points.Append(point);
  }
  for (const unsigned corner : qelvrml::TriangulatePolygon(polygon)) output->Corners.Append(static_cast<int>(corner));
  output->TriangleCount = static_cast<int>(output->Corners.GetSize() / 3);
  return output->TriangleCount > 0 ? brixEOK : brixEFailed;
}
