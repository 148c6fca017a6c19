#include "scene/Shape.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <span>

#include "scene/CornerCoordinates.h"

namespace {

constexpr unsigned Unused = std::numeric_limits<unsigned>::max();

// Of a zero vector, and of one that isn't finite, some vector of length 1.
brixVector Unit(const brixVector& v) {
  const double length = std::hypot<double>(v.x, v.y, v.z);
  if (!std::isfinite(length) || length == 0.0) return {0.0F, 0.0F, 1.0F};
  return {static_cast<float>(v.x / length), static_cast<float>(v.y / length), static_cast<float>(v.z / length)};
}

// Those corners whose elements, of `size` corners each, stand on finite points.
std::vector<unsigned> SoundElements(const std::vector<unsigned>& corners, std::size_t size,
                                    const std::vector<brixFloatPoint>& points) {
  std::vector<unsigned> sound;
  sound.reserve(corners.size());
  for (std::size_t i = 0; i + size <= corners.size(); i += size) {
    const auto element = std::span(corners).subspan(i, size);
    if (std::all_of(element.begin(), element.end(), [&](unsigned corner) { return IsFinite(points[corner]); })) {
      sound.insert(sound.end(), element.begin(), element.end());
    }
  }
  return sound;
}

/// Takes points over in the order in which they are first asked for.
class PointTaker {
public:
  PointTaker(const brixEvaluation& from, const std::vector<brix2DFloatPoint>& coordinates, Shape& to)
      : From(from), Coordinates(coordinates), To(to), Places(from.Points.size(), Unused) {}

  void Take(std::vector<unsigned>& corners) {
    for (unsigned& corner : corners) corner = Take(corner);
  }
  unsigned Take(unsigned point) {
    unsigned& place = Places[point];
    if (place == Unused) {
      place = static_cast<unsigned>(To.Points.size());
      To.Points.push_back(From.Points[point]);
      if (!To.Triangles.empty()) To.Normals.push_back(From.Normals.empty() ? Unit({}) : Unit(From.Normals[point]));
      if (!Coordinates.empty()) To.TextureCoordinates.push_back(Coordinates[point]);
    }
    return place;
  }

private:
  const brixEvaluation& From;
  const std::vector<brix2DFloatPoint>& Coordinates;
  Shape& To;
  std::vector<unsigned> Places;
};

// Rotates and scales texture coordinates, in this order, about (0, 0).
void ApplyTransform(const CKelTextureCoordinate& mapping, std::vector<brix2DFloatPoint>& coordinates) {
  const double angle = mapping.GetRotation() * std::numbers::pi / 180.0;
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  for (brix2DFloatPoint& c : coordinates) {
    const double s = mapping.GetScale().S * (c.x * cosine - c.y * sine);
    const double t = mapping.GetScale().T * (c.x * sine + c.y * cosine);
    c.x = std::isfinite(s) ? static_cast<float>(s) : 0.0F;
    c.y = std::isfinite(t) ? static_cast<float>(t) : 0.0F;
  }
}

}  // namespace

bool IsFinite(const brixFloatPoint& point) {
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

Shape MakeShape(const brixBaseObject& object, const Resolution& resolution, const CKelTextureCoordinate* mapping) {
  Shape shape;
  brixEvaluation evaluation;
  if (object.Evaluate(ToleranceFor(object, resolution), evaluation) != brixEOK) return shape;

  shape.Triangles = SoundElements(evaluation.Triangles, 3, evaluation.Points);
  shape.Segments = SoundElements(evaluation.Segments, 2, evaluation.Points);
  std::vector<brix2DFloatPoint> coordinates;
  if (mapping && !shape.Triangles.empty()) {
    coordinates = CornerCoordinates(object, *mapping, evaluation.Points);
    ApplyTransform(*mapping, coordinates);
  }
  PointTaker taker(evaluation, coordinates, shape);
  taker.Take(shape.Triangles);
  taker.Take(shape.Segments);
  if (!evaluation.Triangles.empty() || !evaluation.Segments.empty()) return shape;
  for (unsigned i = 0; i < evaluation.Points.size(); ++i) {
    if (IsFinite(evaluation.Points[i])) taker.Take(i);
  }
  return shape;
}

void Append(const Shape& shape, Shape& to) {
  const auto first = static_cast<unsigned>(to.Points.size());
  const auto shifted = [first](unsigned corner) { return first + corner; };
  std::transform(shape.Triangles.begin(), shape.Triangles.end(), std::back_inserter(to.Triangles), shifted);
  std::transform(shape.Segments.begin(), shape.Segments.end(), std::back_inserter(to.Segments), shifted);
  to.Points.insert(to.Points.end(), shape.Points.begin(), shape.Points.end());
  to.Normals.insert(to.Normals.end(), shape.Normals.begin(), shape.Normals.end());
  to.TextureCoordinates.insert(to.TextureCoordinates.end(), shape.TextureCoordinates.begin(),
                               shape.TextureCoordinates.end());
}
