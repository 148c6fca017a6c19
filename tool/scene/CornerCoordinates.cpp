// A scene lists a texture coordinate for each point of an object. Faces evaluate to their corners, one face after the
// other, so that a point stands there once for each face around it. A list that is as long as there are corners, and
// isn't as long as there are points, has one for each corner: scenes write these with indices that count up. Any other
// list goes with indices that a model doesn't have, and the image lies as VRML has it without a list.

#include "scene/CornerCoordinates.h"

#include <algorithm>
#include <array>

#include "qelvrml/platform/brix/brixBBox.h"
#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"

namespace {

/// Lists, for each point that an object evaluates to, the place of its texture coordinate.
class PlaceFinder : public brixObjectVisitor {
public:
  explicit PlaceFinder(std::size_t listed) : Listed(listed) {}

  void Visit(const CKelPolyface& face) override {
    const std::size_t points = face.GetPoints().GetSize();
    const brixRunList runs(face.GetFaceList());
    std::size_t corners = 0;
    for (const brixRun& run : runs) corners += run.Indices.size();
    const bool perCorner = Listed == corners && Listed != points;
    Fits = perCorner || Listed == points;
    for (const brixRun& run : runs) AddFace(run.Indices, points, perCorner);
  }
  void Visit(const CKelPolygon& polygon) override { AddPoints(polygon.GetPolyline().GetSize()); }
  void Visit(const CKelPolyMesh& mesh) override { AddPoints(mesh.GetPoints().GetSize()); }
  void Visit(const CKelTriangleStrip& strip) override { AddPoints(strip.GetPoints().GetSize()); }
  void Visit(const CKelMultipleTriangleStrip& strips) override { AddPoints(strips.GetPoints().GetSize()); }

  std::vector<std::size_t> Places;
  bool Fits = false;  ///< whether the list has one for each

private:
  // A face of fewer than three points evaluates to nothing.
  void AddFace(std::span<const int> indices, std::size_t points, bool perCorner) {
    const std::size_t before = Places.size();
    for (const int index : indices) {
      if (index >= 0 && static_cast<std::size_t>(index) < points) {
        Places.push_back(perCorner ? Corner : static_cast<std::size_t>(index));
      }
      ++Corner;
    }
    if (Places.size() - before < 3) Places.resize(before);
  }
  void AddPoints(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) Places.push_back(i);
    Fits = Listed == count;
  }

  std::size_t Listed;
  std::size_t Corner = 0;
};

// The image lies along the longest side of the box around the object, from end to end, and upward along the second
// longest, in proportion (ISO/IEC 14772-1, 6.23).
std::vector<brix2DFloatPoint> DefaultCoordinates(std::span<const brixFloatPoint> points) {
  brixBBox box;
  for (const brixFloatPoint& point : points) box.Add(point);
  const auto least = std::array{box.GetMinimum().x, box.GetMinimum().y, box.GetMinimum().z};
  const auto most = std::array{box.GetMaximum().x, box.GetMaximum().y, box.GetMaximum().z};
  const auto extent = [&](std::size_t axis) { return most[axis] - least[axis]; };
  std::array<std::size_t, 3> axes = {0, 1, 2};
  std::stable_sort(axes.begin(), axes.end(), [&](std::size_t a, std::size_t b) { return extent(a) > extent(b); });
  const float length = extent(axes[0]) > 0.0F ? extent(axes[0]) : 1.0F;
  std::vector<brix2DFloatPoint> coordinates;
  coordinates.reserve(points.size());
  for (const brixFloatPoint& point : points) {
    const std::array p = {point.x, point.y, point.z};
    const auto along = [&](std::size_t axis) { return (p[axis] - least[axis]) / length; };
    coordinates.emplace_back(along(axes[0]), along(axes[1]));
  }
  return coordinates;
}

}  // namespace

std::vector<brix2DFloatPoint> CornerCoordinates(const brixBaseObject& object, const CKelTextureCoordinate& mapping,
                                                std::span<const brixFloatPoint> points) {
  const auto listed = mapping.GetCoordinates().View();
  PlaceFinder finder(listed.size());
  object.Accept(finder);
  if (finder.Places.size() != points.size()) return {};
  if (!finder.Fits) return DefaultCoordinates(points);
  std::vector<brix2DFloatPoint> coordinates(points.size());
  std::transform(finder.Places.begin(), finder.Places.end(), coordinates.begin(),
                 [&](std::size_t place) { return listed[place]; });
  return coordinates;
}
