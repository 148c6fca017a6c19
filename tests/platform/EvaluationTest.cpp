// What the objects of a model look like: the triangles of each class against the formulas of its shape.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>

#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixCone.h"
#include "qelvrml/platform/brix/solids/brixCylinder.h"
#include "qelvrml/platform/brix/solids/brixDisk.h"
#include "qelvrml/platform/brix/solids/brixSphere.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"
#include "support/Arrays.h"

namespace {

constexpr double Pi = std::numbers::pi;
constexpr float Whole = brixBaseRevSurface::WholeTurn;
constexpr float Half = brixBaseRevSurface::HalfTurn;

using Object = std::shared_ptr<brixBaseObject>;

template <class Class, class Base, class... Values>
Object Make(void (Base::*set)(Values...), const std::decay_t<Values>&... values) {
  auto object = std::make_shared<Class>();
  (object.get()->*set)(values...);
  return object;
}

Object Sphere(const brixFloatPoint& centre, float radius, float turn0, float turn1, float polar0, float polar1) {
  const brixVector start(1.0F / 3, 2.0F / 3, -2.0F / 3);  // at right angles to the axis
  const brixVector axis(2.0F / 3, 1.0F / 3, 2.0F / 3);
  return Make<brixSphere>(&brixSphere::SetSphere, centre, start, axis, radius, turn0, turn1, polar0, polar1);
}
Object Cylinder(float height, float radius, float ratio, float from = 0, float to = Whole) {
  return Make<brixCylinder>(&brixCylinder::SetCylinder, height, radius, ratio, brixVector(0.6F, -0.8F, 0), from, to);
}
Object Cone(float height, float bottom, float top) { return Make<brixCone>(&brixCone::SetCone, height, bottom, top); }
Object Disk(float inner, float outer, const brixMatrix4x4& placement) {
  return Make<brixDisk>(&brixDisk::SetDisk, inner, outer, placement, brixTrue);
}
Object Mesh(const brixFloatPointArray& points, int rows, int columns, bool closedRows, bool closedColumns) {
  return Make<CKelPolyMesh>(&CKelPolyMesh::SetPoints, points, rows, columns, closedRows, closedColumns);
}

/// A shape made of objects. The volume is that between the surface and the origin, by the divergence theorem: of a
/// closed surface its inside, of a flat one a third of area times height.
struct Shape {
  std::string Name;
  double Volume;
  double Area;
  std::vector<Object> Parts;
  bool Wound = false;  // the order of its points says which side is the front, so that a mirror turns it round
};

std::vector<Shape> Shapes() {
  const brixMatrix4x4 down = GetScaleMatrix({1, -1, -1});
  const brixMatrix4x4 up = GetDisplacementMatrix({0, 0, 3});
  const double slope = std::sqrt(10.0);
  const double cap = std::cos(0.25) - std::cos(1.25);
  const brixFloatPointArray corners =
      Points({{1, 1, 0}, {-1, 1, 0}, {-1, -1, 0}, {1, -1, 0}, {1, 1, 3}, {-1, 1, 3}, {-1, -1, 3}, {1, -1, 3}});
  const brixFloatPointArray columns =
      Points({{1, 1, 3}, {1, 1, 0}, {-1, 1, 3}, {-1, 1, 0}, {-1, -1, 3}, {-1, -1, 0}, {1, -1, 3}, {1, -1, 0}});
  brixFloatPointArray strips;
  for (const int count : {3, 5, 3}) {
    for (int i = 0; i < count; ++i) {
      const int row = i / 2;
      strips.Append({static_cast<float>(i % 2), static_cast<float>(row), 3});
    }
  }
  const brixFloatPointArray grid = Points({{0, 0, 3}, {1, 0, 3}, {3, 0, 3}, {0, 2, 3}, {1, 2, 3}, {3, 2, 3}});
  const brixFloatPointArray corner = Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
  const brixIntArray faces = Ints({3, 0, 2, 1, 3, 0, 1, 3, 3, 0, 3, 2, 3, 1, 2, 3});
  const brixFloatPointArray concave = Points({{0, 0, 3}, {3, 0, 3}, {3, 1, 3}, {1, 1, 3}, {1, 3, 3}, {0, 3, 3}});
  const auto face = Make<CKelPolyface>(&CKelPolyface::SetPoints, corner, faces, true);
  const auto polygon = Make<CKelPolygon>(&CKelPolygon::SetPolyline, concave, true);
  const auto strip =
      Make<CKelMultipleTriangleStrip>(&CKelMultipleTriangleStrip::SetStrips, strips, {}, Ints({3, 5, 3}));
  return {
      {"sphere", 32 * Pi / 3, 16 * Pi, {Sphere({1, 2, 3}, 2, 0, Whole, 0, Half)}},
      {"negative sphere", 32 * Pi / 3, 16 * Pi, {Sphere({1, 2, 3}, -2, 0, Whole, 0, Half)}},
      {"part of a sphere", 4 * cap, 6 * cap, {Sphere({}, 2, 0.5F, 2, 0.25F, 1.25F)}},
      {"cylinder", 12 * Pi, 20 * Pi, {Cylinder(3, 2, 1), Disk(0, 2, down), Disk(0, 2, up)}},
      {"quarter of a side", 2 * Pi, 3 * Pi, {Cylinder(3, 2, 1, 1, 1 + Half / 2)}},
      {"cone", 4 * Pi, (2 * std::sqrt(13.0) + 4) * Pi, {Cone(3, 2, 0), Disk(0, 2, down)}},
      {"cone upside down", 4 * Pi, (2 * std::sqrt(13.0) + 4) * Pi, {Cone(-3, 2, 0), Disk(0, 2, {})}},
      {"frustum", 7 * Pi, (3 * slope + 5) * Pi, {Cone(3, 2, 1), Disk(0, 2, down), Disk(0, 1, up)}},
      {"negative radii", 7 * Pi, (3 * slope + 5) * Pi, {Cylinder(3, -2, 0.5F), Disk(0, -2, down), Disk(0, 1, up)}},
      {"disk", 4 * Pi, 4 * Pi, {Disk(0, 2, up)}},
      {"ring", 3 * Pi, 3 * Pi, {Disk(1, 2, up)}},
      {"box", 12, 32, {Make<brixBox>(&brixBox::SetBox, corners)}},
      {"tube along its rows", 8, 24, {Mesh(corners, 2, 4, false, true)}, true},
      {"polyface", 1.0 / 6, 1.5 + std::sqrt(0.75), {face}, true},
      {"concave polygon", 5, 5, {polygon}, true},
      {"open mesh", 6, 6, {Mesh(grid, 2, 3, false, false)}, true},
      {"tube across its rows", 8, 24, {Mesh(columns, 4, 2, true, false)}, true},
      {"strips", 2.5, 2.5, {strip}, true},
  };
}

/// Sums up triangles, and holds each against the normals at its corners.
struct Measure {
  double Volume = 0.0;
  double Area = 0.0;
  double LeastCosine = 1.0;

  void Add(const brixEvaluation& e) {
    ASSERT_EQ(e.Normals.size(), e.Points.size());
    for (std::size_t i = 0; i < e.Triangles.size(); i += 3) {
      const unsigned* corner = &e.Triangles[i];
      const brixFloatPoint& a = e.Points[corner[0]];
      brixVector normal = CrossProduct(brixVector(a, e.Points[corner[1]]), brixVector(a, e.Points[corner[2]]));
      Volume += DotProduct(brixVector(a), normal) / 6.0;
      Area += normal.Length() / 2.0;
      normal.Normalize();
      for (int k = 0; k < 3; ++k) LeastCosine = std::min(LeastCosine, DotProduct(normal, e.Normals[corner[k]]));
    }
    for (const brixVector& normal : e.Normals) EXPECT_NEAR(normal.Length(), 1.0, 1e-5);
  }
};

brixMatrix4x4 Shear() {
  brixMatrix4x4 m = GetScaleMatrix({1, 2, 0.5F});
  m[0][1] = 0.75F;
  m[2][0] = -0.5F;
  return m * CreateRotationMatrixForNormalAngle({1, 2, 3}, 0.5);  // of the determinant 1
}

TEST(Evaluation, VolumesAndAreasByTheirFormulas) {
  const brixMatrix4x4 turn = CreateRotationMatrixForNormalAngle({1, 1, 1}, 2 * Pi / 3);  // x to y to z
  for (const auto& [matrix, determinant, keepsShape] : {std::tuple(brixMatrix4x4(), 1.0, true),
                                                        {GetScaleMatrix({-1, 1, 1}), -1.0, true},
                                                        {turn, 1.0, true},
                                                        {turn * turn * GetScaleMatrix({1, -1, 1}), -1.0, true},
                                                        {Shear(), 1.0, false},
                                                        {GetScaleMatrix({1, 1, -2}) * Shear(), -2.0, false}}) {
    for (const Shape& shape : Shapes()) {
      SCOPED_TRACE(testing::Message() << shape.Name << ", determinant " << determinant << ", " << keepsShape);
      Measure sum;
      for (const Object& part : shape.Parts) {
        brixEvaluation e;
        part->ApplyMatrixToGeometry(matrix, brixTrue);
        EXPECT_EQ(part->Evaluate(2e-4, e), brixEOK);
        sum.Add(e);
      }
      const double volume = shape.Volume * (shape.Wound ? determinant : std::fabs(determinant));
      EXPECT_NEAR(sum.Volume, volume, 1e-3 * std::fabs(volume));
      if (keepsShape) {
        EXPECT_NEAR(sum.Area, shape.Area, 1e-3 * shape.Area);
      }
      if (keepsShape || !shape.Wound) {  // at a sharp edge a mean of normals may face away
        EXPECT_GT(sum.LeastCosine, 0.0);
      }
    }
  }
}

// The points of the triangles lie on the surface: none outside the box, and close to each of its sides.
TEST(Evaluation, BoxesAreExactUnderAnyMatrix) {
  std::vector<Object> objects = {Sphere({1, 2, 3}, 2, -7, -3, 1, 2), Sphere({}, 1, 8, 10, 0, 0.5F),
                                 Sphere({}, 1, 0, Whole, 0, 1),      Sphere({}, 1, 1, 8, 0.5F, Half),
                                 Cylinder(1, 3, 0.25F, 9, 12),       Cylinder(3, -2, 1, -2, -1)};
  for (const Shape& shape : Shapes()) objects.insert(objects.end(), shape.Parts.begin(), shape.Parts.end());
  for (int turn = 0; turn < 4; ++turn) {
    const brixMatrix4x4 matrix = Shear() * CreateRotationMatrixForNormalAngle({2, 1, static_cast<float>(turn)}, turn) *
                                 GetDisplacementMatrix({5, -7, 1});
    for (std::size_t i = 0; i < objects.size(); ++i) {
      SCOPED_TRACE(testing::Message() << "object " << i << ", turn " << turn);
      objects[i]->ApplyMatrixToGeometry(matrix, brixTrue);
      brixEvaluation e;
      objects[i]->Evaluate(1e-3, e);
      brixBBox sampled;
      for (const brixFloatPoint& p : e.Points) sampled.Add(p);
      const brixBBox box = objects[i]->ComputeBBox();
      const brixVector below(box.GetMinimum(), sampled.GetMinimum());
      const brixVector above(sampled.GetMaximum(), box.GetMaximum());
      for (const float gap : {below.x, below.y, below.z, above.x, above.y, above.z}) {
        EXPECT_GT(gap, -1e-5F);
        EXPECT_LT(gap, 1.1e-3F);
      }
    }
  }
}

// A chord of a circle with the radius r is at most d away from it over an angle of 2 acos(1 - d / r).
TEST(Evaluation, ChordsStayWithinTheTolerance) {
  brixEvaluation e;
  for (const auto& [object, tolerance, triangles] : {std::tuple(Cylinder(1, 10, 1), 0.05, 2U * 32U),
                                                     {Cylinder(1, 10, 0.1F), 0.0, 2U * 23U},
                                                     {Cone(1, 1, 10), 0.0, 2U * 23U},
                                                     {Disk(0, 10, {}), 1000.0, 4U}}) {
    object->Evaluate(tolerance, e);
    EXPECT_EQ(e.Triangles.size() / 3, triangles) << object->GetClassName();
    EXPECT_EQ(object->CountTriangles(tolerance), triangles) << object->GetClassName();
  }
  // Under a matrix too: the middle of an edge, brought back, lies below the sphere by its distance.
  for (const brixMatrix4x4& matrix : {GetScaleMatrix({3, 3, 3}), Shear()}) {
    const Object sphere = Sphere({}, 10, 0, Whole, 0, Half);
    sphere->ApplyMatrixToGeometry(matrix, brixTrue);
    sphere->Evaluate(0.1, e);
    EXPECT_EQ(sphere->CountTriangles(0.1), e.Triangles.size() / 3);
    for (std::size_t i = 0; i < e.Triangles.size(); i += 3) {
      const brixVector across = brixVector(e.Points[e.Triangles[i]]) + brixVector(e.Points[e.Triangles[i + 1]]);
      brixVector middle = across * GetInverseMatrix(matrix);
      middle *= 10.0F / middle.Length() - 0.5F;
      ASSERT_LT((middle * matrix).Length(), 0.1001F);
    }
  }
}

}  // namespace
