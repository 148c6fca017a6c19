// Triangles that are counted against triangles that are made, where the two could differ: points that come together
// when they are rounded, poles, matrices of every kind, and faces with points in one place.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixCone.h"
#include "qelvrml/platform/brix/solids/brixCylinder.h"
#include "qelvrml/platform/brix/solids/brixDisk.h"
#include "qelvrml/platform/brix/solids/brixDot.h"
#include "qelvrml/platform/brix/solids/brixSphere.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"
#include "support/Arrays.h"

namespace {

constexpr float WholeTurn = brixBaseRevSurface::WholeTurn;
constexpr float HalfTurn = brixBaseRevSurface::HalfTurn;
constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float StepsOfWholeTurns = 4096.0F * WholeTurn;  // there are no more steps than 4096
constexpr float Largest = std::numeric_limits<float>::max();

std::size_t MadeTriangles(const brixBaseObject& object, double tolerance) {
  brixEvaluation evaluation;
  object.Evaluate(tolerance, evaluation);
  return evaluation.Triangles.size() / 3;
}

/// Solids of a radius and of a height, whole ones and parts.
std::vector<std::unique_ptr<brixBaseRevSurface>> Solids(float radius, float height) {
  std::vector<std::unique_ptr<brixBaseRevSurface>> solids;
  const auto add = [&solids](auto solid, auto set, const auto&... values) {
    (solid.get()->*set)(values...);
    solids.push_back(std::move(solid));
  };
  for (const float top : {0.0F, radius, -radius / 2, radius * 1e-6F})
    add(std::make_unique<brixCone>(), &brixCone::SetCone, height, radius, top);
  add(std::make_unique<brixCone>(), &brixCone::SetCone, height, 0.0F, radius);
  const brixVector start(0.6F, -0.8F, 0);
  for (const auto& [from, to] : {std::pair(0.0F, WholeTurn),
                                 {1.0F, 1.0F},
                                 {1.0F, 1.0001F},
                                 {-9.0F, 20.0F},
                                 {4.0F, 1.0F},
                                 {0.0F, StepsOfWholeTurns}}) {
    for (const float ratio : {1.0F, 0.0F, -1.0F})
      add(std::make_unique<brixCylinder>(), &brixCylinder::SetCylinder, height, radius, ratio, start, from, to);
  }
  for (const auto filled : {brixTrue, brixFalse}) {
    for (const float inner : {0.0F, radius, radius * 0.75F})
      add(std::make_unique<brixDisk>(), &brixDisk::SetDisk, inner, radius, brixMatrix4x4(), filled);
  }
  const brixVector axis(0.8F, 0.6F, 0);
  for (const brixVector& pole : {axis, brixVector(8, 6, 0), start}) {
    for (const auto& [from, to] : {std::pair(0.0F, HalfTurn),
                                   {0.5F, 2.0F},
                                   {0.0F, 1e-6F},
                                   {1e-6F, 1.0F},
                                   {1.2e-6F, 3.14F},
                                   {2.0F, 0.5F},
                                   {-1.0F, 1.0F},
                                   {2.0F, 7.0F},
                                   {0.0F, 1e-4F},
                                   {1.0F, 1.0F},
                                   {0.0F, NotANumber}}) {
      add(std::make_unique<brixSphere>(), &brixSphere::SetSphere, brixFloatPoint(height, 0, 1), start, pole, radius,
          0.0F, WholeTurn, from, to);
    }
  }
  add(std::make_unique<brixSphere>(), &brixSphere::SetSphere, brixFloatPoint(), start, axis, radius, 1.0F, 1.0F, 0.0F,
      HalfTurn);
  return solids;
}

void ExpectSolids(float radius, float height, const brixMatrix4x4& matrix, double tolerance = 0.0) {
  const auto solids = Solids(radius, height);
  for (std::size_t i = 0; i < solids.size(); ++i) {
    solids[i]->ApplyMatrixToGeometry(matrix, brixTrue);
    ASSERT_EQ(solids[i]->CountTriangles(tolerance), MadeTriangles(*solids[i], tolerance))
        << "solid " << i << ", a " << solids[i]->GetClassName() << ", of the radius " << radius;
  }
}

brixMatrix4x4 RandomMatrix(std::mt19937& random) {
  std::uniform_real_distribution<float> entry(-1, 1);
  brixMatrix4x4 matrix;
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) matrix[row][column] = entry(random);
  }
  return matrix;
}

TEST(TriangleCount, SolidsOfOddSizes) {
  for (const float radius : {2.0F, -2.0F, 0.0F, 1e-30F, 1e30F, Largest, Infinity, NotANumber}) {
    for (const float height : {3.0F, -3.0F, 0.0F, 1e-9F, 1e9F, Infinity, NotANumber}) ExpectSolids(radius, height, {});
  }
  for (const double tolerance : {0.001, 0.5, 1e30}) ExpectSolids(2, 3, {}, tolerance);
}

TEST(TriangleCount, SolidsUnderOddMatrices) {
  brixMatrix4x4 nothing = GetScaleMatrix({0, 0, 0});
  brixMatrix4x4 unplaced;
  unplaced[3][0] = NotANumber;
  brixMatrix4x4 skewed;
  skewed[0] = {1, 1, 1, 0};
  skewed[1] = {1, 1, 1.0001F, 0};
  for (const brixMatrix4x4& matrix :
       {nothing, unplaced, skewed, GetScaleMatrix({-1, 1, 1}), GetScaleMatrix({1, 1, 0}), GetScaleMatrix({1, 0, 0}),
        GetScaleMatrix({1e-6F, 1, 1}), GetScaleMatrix({1, 1, 1e-7F}), GetScaleMatrix({1e-20F, 1e-20F, 1e-20F}),
        GetScaleMatrix({1e-37F, 1e-37F, 1e-37F}), GetScaleMatrix({1e-43F, 1e-43F, 1e-43F}),
        GetScaleMatrix({2e38F, 2e38F, 2e38F}), GetScaleMatrix({1, Infinity, 1}), GetScaleMatrix({NotANumber, 1, 1}),
        GetDisplacementMatrix({Largest, 0, 0}), GetDisplacementMatrix({0, Infinity, 0})})
    ExpectSolids(2, 3, matrix);
}

// Along this way points begin to come together, first here and there and at last all of them.
TEST(TriangleCount, SolidsThatVanishInTheDistance) {
  std::mt19937 random(1);
  for (float radius = 1.0F; radius > 1e-9F; radius *= 0.6F) {
    const brixMatrix4x4 away = GetDisplacementMatrix({10, -3, 0.01F});
    ExpectSolids(radius, radius, away);
    ExpectSolids(radius, radius, CreateRotationMatrixForNormalAngle({1, 2, 3}, radius) * away);
    ExpectSolids(radius, radius, RandomMatrix(random) * away);
    ExpectSolids(1, radius, RandomMatrix(random) * away);
  }
}

/// A class whose objects mustn't be evaluated.
template <class Class>
class Unevaluated : public Class {
public:
  brixEReturn Evaluate(double /*chordTolerance*/, brixEvaluation& /*result*/) const override {
    ADD_FAILURE() << this->GetClassName();
    return brixEFailed;
  }
};

// A step is 2 acos(1 - d) for d of the radius: at d = 0.01 there are 23 of them in a turn, at the sphere's d = 0.005 32
// in a turn and 16 from pole to pole. A pole takes a triangle of each step away.
TEST(TriangleCount, OrdinarySolidsAreCountedWithoutMakingTriangles) {
  const brixMatrix4x4 identity;
  brixMatrix4x4 away = CreateRotationMatrixForNormalAngle({1, 2, 3}, 1.0) * GetDisplacementMatrix({900, -900, 900});
  Unevaluated<brixCone> cone;
  Unevaluated<brixCylinder> cylinder;
  Unevaluated<brixSphere> sphere;
  Unevaluated<brixDisk> disk;
  Unevaluated<brixDisk> ring;
  cone.SetCone(3, 1, 0);
  cylinder.SetCylinder(3, 1, 1, {1, 0, 0}, 0, WholeTurn);
  disk.SetDisk(0, 1, identity, brixTrue);
  ring.SetDisk(0.5F, 1, identity, brixTrue);
  for (const brixMatrix4x4& matrix : {identity, away, GetScaleMatrix({-1, 1, 1})}) {
    for (brixBaseRevSurface* solid :
         std::initializer_list<brixBaseRevSurface*>{&cone, &cylinder, &sphere, &disk, &ring})
      solid->SetXformation(matrix);
    EXPECT_EQ(cone.CountTriangles(0.0), 23U);
    EXPECT_EQ(cylinder.CountTriangles(0.0), 2U * 23U);
    EXPECT_EQ(sphere.CountTriangles(0.0), 2U * 32U * 16U - 2U * 32U);
    EXPECT_EQ(disk.CountTriangles(0.0), 23U);
    EXPECT_EQ(ring.CountTriangles(0.0), 2U * 23U);
  }
}

/// Places on a small square, so that many of them coincide, lie on lines and make outlines that cross.
class RandomOutlines {
public:
  explicit RandomOutlines(int side) : Place(0, side - 1) {}

  std::vector<brixFloatPoint> Next() {
    std::vector<brixFloatPoint> outline(static_cast<std::size_t>(Size(Random)));
    const int plane = Plane(Random);
    for (brixFloatPoint& p : outline)
      p = Put(static_cast<float>(Place(Random)), static_cast<float>(Place(Random)), plane);
    if (plane == 5 && !outline.empty()) outline.back().x = outline.front().z = Odd(Random) == 0 ? NotANumber : Infinity;
    return outline;
  }

private:
  brixFloatPoint Put(float u, float v, int plane) {
    switch (plane) {
      case 0: return {u, v, 7.1F};
      case 1: return {-300, u, v};
      case 2: return {v, 0, u};
      case 3: return {u, v, u + v};                              // every axis alike
      case 4: return {u, v, static_cast<float>(Place(Random))};  // not flat
      default: return {u, v, 0};
    }
  }

  std::mt19937 Random{1};
  std::uniform_int_distribution<int> Place;
  std::uniform_int_distribution<int> Size{0, 20};
  std::uniform_int_distribution<int> Plane{0, 5};
  std::uniform_int_distribution<int> Odd{0, 1};
};

TEST(TriangleCount, FacesOfEveryKind) {
  for (const int side : {2, 3, 6, 40}) {
    RandomOutlines outlines(side);
    for (int i = 0; i < 20'000; ++i) {
      const brixFloatPointArray outline = Points(outlines.Next());
      CKelPolygon polygon;
      polygon.SetPolyline(outline, true);
      ASSERT_EQ(polygon.CountTriangles(0.0), MadeTriangles(polygon, 0.0)) << "outline " << i << ", side " << side;
    }
  }
}

// Far from the origin what the products in the sum of a normal are rounded by is longer than the normal itself.
TEST(TriangleCount, FacesSeenFromASideByRounding) {
  for (const float z : {0.0F, 1.0F, 1e9F, 1e30F}) {
    for (const float size : {1.0F, 1e-3F, 1e-9F}) {
      CKelPolygon polygon;
      polygon.SetPolyline(Points({{1, 1, z}, {1 + size, 1, z}, {1 + size, 1 + size, z}, {1, 1 + size, z}}), true);
      EXPECT_EQ(polygon.CountTriangles(0.0), MadeTriangles(polygon, 0.0)) << z << " " << size;
    }
  }
}

TEST(TriangleCount, ListsOfFacesStripsAndCells) {
  const brixFloatPointArray points = Points({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {1, 1, 0}, {0, 4, 0}, {0, 0, 0}});
  std::vector<std::unique_ptr<brixBaseObject>> objects;
  for (const auto& faces :
       {Ints({3, 0, 1, 2, 3, 0, 1, 6, 3, -1, 0, 1, 4, 0, 1, 9, 2}), Ints({0, 2, 0, 1, 5, 0, 1, 2, 3, 4}),
        Ints({6, 0, 1, 2, 3, 4, 5, -3, 4, 0, 1}), Ints({3, 0, 0, 0, 4, 1, 1, 1, 1}), Ints({})}) {
    auto face = std::make_unique<CKelPolyface>();
    face->SetPoints(points, faces, true);
    objects.push_back(std::move(face));
  }
  for (const auto& [rows, columns] : {std::pair(2, 3), {3, 2}, {1, 6}, {6, 1}, {0, 0}, {1, 1}}) {
    for (const int closed : {0, 1, 2, 3}) {
      auto mesh = std::make_unique<CKelPolyMesh>();
      mesh->SetPoints(points, rows, columns, closed % 2 != 0, closed / 2 != 0);
      objects.push_back(std::move(mesh));
    }
  }
  for (const auto& counts : {Ints({3, 3}), Ints({1, 2, 3}), Ints({-1, 9}), Ints({})}) {
    auto strips = std::make_unique<CKelMultipleTriangleStrip>();
    strips->SetStrips(points, {}, counts);
    objects.push_back(std::move(strips));
  }
  auto strip = std::make_unique<CKelTriangleStrip>();
  strip->SetPoints(points, {});
  objects.push_back(std::move(strip));
  auto line = std::make_unique<CKelPolyline>();
  line->SetPolyline(points, true);
  objects.push_back(std::move(line));
  objects.push_back(std::make_unique<brixBox>());
  objects.push_back(std::make_unique<brixDot>());
  for (std::size_t i = 0; i < objects.size(); ++i)
    EXPECT_EQ(objects[i]->CountTriangles(0.0), MadeTriangles(*objects[i], 0.0)) << "object " << i;
}

}  // namespace
