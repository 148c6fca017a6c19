#include "scene/Resolution.h"

#include <algorithm>
#include <cmath>

#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/brixCone.h"
#include "qelvrml/platform/brix/solids/brixCylinder.h"
#include "qelvrml/platform/brix/solids/brixDisk.h"
#include "qelvrml/platform/brix/solids/brixSphere.h"

namespace {

/// Finds the radius of a surface of revolution in the world; 0 for anything else.
class RadiusFinder : public brixObjectVisitor {
public:
  void Visit(const brixCone& cone) override {
    Find(std::max(std::abs(cone.GetBottomRadius()), std::abs(cone.GetTopRadius())), cone.GetXformation());
  }
  void Visit(const brixCylinder& cylinder) override { Find(cylinder.GetRadius(), cylinder.GetXformation()); }
  void Visit(const brixSphere& sphere) override { Find(sphere.GetRadius(), sphere.GetXformation()); }
  void Visit(const brixDisk& disk) override { Find(disk.GetOuterRadius(), disk.GetPlacement()); }

  double Radius = 0.0;

private:
  void Find(float radius, const brixMatrix4x4& matrix) {
    double stretch = 0.0;
    for (std::size_t row = 0; row < 3; ++row) {
      stretch = std::max(stretch, std::hypot<double>(matrix[row][0], matrix[row][1], matrix[row][2]));
    }
    Radius = std::abs(radius) * stretch;
  }
};

std::size_t CountAll(const brixBaseGroup& group, const Resolution& resolution) {
  std::size_t triangles = 0;
  for (int i = 0; i < group.GetNumObjects(); ++i) {
    const brixBaseObject& object = *group.GetObjectAt(i);
    triangles += object.CountTriangles(ToleranceFor(object, resolution));
  }
  for (int i = 0; i < group.GetNumGroups(); ++i) triangles += CountAll(*group.GetGroupAt(i), resolution);
  return triangles;
}

}  // namespace

double ToleranceFor(const brixBaseObject& object, const Resolution& resolution) {
  if (resolution.Tolerance > 0.0) return resolution.Tolerance;
  RadiusFinder finder;
  object.Accept(finder);
  return resolution.ShareOfRadius * finder.Radius;
}

Resolution Affordable(const brixBaseGroup& world, const Resolution& asked) {
  constexpr std::size_t MostTriangles = 20'000'000;
  constexpr double CoarsestShare = 0.25;  // beyond it rims that meet get different numbers of steps
  Resolution affordable = asked;
  if (asked.Tolerance > 0.0) return affordable;
  while (affordable.ShareOfRadius < CoarsestShare && CountAll(world, affordable) > MostTriangles) {
    affordable.ShareOfRadius = std::min(4.0 * affordable.ShareOfRadius, CoarsestShare);
  }
  return affordable;
}
