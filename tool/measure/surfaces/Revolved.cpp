// A linear map takes an area, as a vector along its normal, to another one by the matrix of its cofactors. So the areas
// of placed surfaces are those of the surfaces, times the mean that SurfacePlacement gives over the directions they
// face in:
//
//   sphere of the radius r             area 4 pi r^2, any direction
//   side of height h, radii p and q    area pi (p + q) s with s^2 = h^2 + (p - q)^2; h / s away, (p - q) / s along

#include "measure/surfaces/Revolved.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "measure/surfaces/SurfacePlacement.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/brixCone.h"
#include "qelvrml/platform/brix/solids/brixCylinder.h"
#include "qelvrml/platform/brix/solids/brixDisk.h"
#include "qelvrml/platform/brix/solids/brixSphere.h"

namespace {

using std::numbers::pi;

/// A circle about the local axis.
struct AxialCircle {
  double Z;
  double Radius;
};

class RevolvedMaker : public brixObjectVisitor {
public:
  void Visit(const brixSphere& sphere) override {
    const bool round = sphere.GetEndTurn() - sphere.GetStartTurn() >= brixSphere::WholeTurn;
    const bool high = sphere.GetStartPolar() <= 0.0F && sphere.GetEndPolar() >= brixSphere::HalfTurn;
    if (round && high) MakeSphere(SurfacePlacement(sphere.GetXformation()), std::fabs(sphere.GetRadius()));
  }
  void Visit(const brixCone& cone) override {
    MakeSide(SurfacePlacement(cone.GetXformation()), {0.0, cone.GetBottomRadius()},
             {cone.GetHeight(), cone.GetTopRadius()});
  }
  void Visit(const brixCylinder& cylinder) override {
    if (cylinder.GetEndAngle() - cylinder.GetStartAngle() < brixCylinder::WholeTurn) return;
    const double top = static_cast<double>(cylinder.GetRadius()) * cylinder.GetRatio();
    MakeSide(SurfacePlacement(cylinder.GetXformation()), {0.0, cylinder.GetRadius()}, {cylinder.GetHeight(), top});
  }
  void Visit(const brixDisk& disk) override {
    const auto [inner, outer] =
        std::minmax<double>({std::fabs(disk.GetInnerRadius()), std::fabs(disk.GetOuterRadius())});
    if (disk.GetFilled() == brixTrue) MakeDisk(SurfacePlacement(disk.GetXformation()), inner, outer);
  }

  std::optional<RevolvedSurface> Made;

private:
  // Bands of one height have one area on a sphere. Opposite places give the same, so that one half stands for both.
  void MakeSphere(const SurfacePlacement& placement, double radius) {
    constexpr int Bands = 64;
    double sum = 0.0;
    for (int band = 0; band < Bands; ++band) {
      const double height = (band + 0.5) / Bands;
      sum += placement.MeanArea(std::sqrt(1.0 - height * height), height);
    }
    Made.emplace().Area = 4.0 * pi * radius * radius * sum / Bands;
    Made->Form.Sheets = {{.Volume = 4.0 / 3.0 * pi * std::pow(radius, 3) * placement.GetVolume()}};
  }

  // A negative radius puts each point on the other side of the axis.
  void MakeSide(const SurfacePlacement& placement, AxialCircle low, AxialCircle high) {
    if (low.Radius * high.Radius < 0.0) return;
    low.Radius = std::fabs(low.Radius);
    high.Radius = std::fabs(high.Radius);
    if (high.Z < low.Z) std::swap(low, high);
    const double height = high.Z - low.Z;
    const double taper = low.Radius - high.Radius;
    Made.emplace().Area = pi * (low.Radius + high.Radius) * placement.MeanArea(height, taper);
    // What is between the side and the middle of the lower circle: all but the cone up to the upper circle.
    const double volume = pi / 3.0 * height * low.Radius * (low.Radius + high.Radius);
    Made->Form.Sheets = {{.Origin = placement.OnAxis(low.Z),
                          .Volume = volume * placement.GetVolume(),
                          .Area = (pi * taper * (low.Radius + high.Radius)) * placement.GetAxialArea()}};
    AddRim(placement, low, 1.0);
    AddRim(placement, high, -1.0);
  }

  void MakeDisk(const SurfacePlacement& placement, double inner, double outer) {
    const Vector3 area = (pi * (outer * outer - inner * inner)) * placement.GetAxialArea();
    Made.emplace().Area = Length(area);
    Made->Form.Sheets = {{.Origin = placement.OnAxis(0.0), .Area = area}};
    AddRim(placement, {0.0, outer}, 1.0);
    AddRim(placement, {0.0, inner}, -1.0);
  }

  // The surface is on the left of a way round the axis, or round the other way.
  void AddRim(const SurfacePlacement& placement, const AxialCircle& circle, double way) {
    if (circle.Radius == 0.0) return;
    const double area = Length(placement.GetAxialArea());
    // As far as the radius, or that of a circle as large as the ellipse.
    const double scale = area > 0.0 ? way * circle.Radius / std::sqrt(area) : 0.0;
    const Vector3 middle = placement.OnAxis(circle.Z);
    const auto corner = static_cast<unsigned>(Made->Corners.size());
    for (const double side : {-scale, scale}) {
      Made->Corners.push_back(ToPoint(middle + side * placement.GetAxialArea()));
    }
    Made->Form.Joints.push_back({corner, corner + 1, 0});
    Made->Form.IsClosed = false;
  }
};

}  // namespace

std::optional<RevolvedSurface> MakeRevolvedSurface(const brixBaseObject& object) {
  RevolvedMaker maker;
  object.Accept(maker);
  return std::move(maker.Made);
}
