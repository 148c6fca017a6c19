// Triangles that are counted against triangles that are made, where the two could differ: points that come together
// when they are rounded, poles, matrices of every kind, and faces with points in one place.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <random>

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

void ExpectCounted(const brixBaseObject& object) {
  brixEvaluation evaluation;
  object.Evaluate(0.0, evaluation);
  EXPECT_EQ(object.CountTriangles(0.0), evaluation.Triangles.size() / 3) << object.GetClassName();
}

/// Sizes, angles and matrices: ordinary ones, odd ones, and some that are close to those before them.
class RandomValues {
public:
  std::size_t Below(std::size_t bound) { return Random() % bound; }
  float OneOf(std::initializer_list<float> values) { return values.begin()[Below(values.size())]; }
  float Ordinary() { return std::uniform_real_distribution<float>(-4, 4)(Random); }
  float Size() {
    const float odd = OneOf({0, 1e-6F, 1e-30F, 1e9F, 1e30F, std::numeric_limits<float>::max(), Infinity, NotANumber});
    const float close = Last * OneOf({0, 1, 1.0001F, -0.5F, 1e-6F});
    const std::size_t kind = Below(8);
    return Last = kind == 0 ? odd : kind < 3 ? close : Ordinary();
  }
  float Angle(float whole) {
    const float odd = OneOf({0.5F, 2, 1.2e-6F, 1e-4F, 7, -1, NotANumber, std::clamp(Size(), -9.0F, 9.0F)});
    return Below(2) == 0 ? odd : OneOf({0, whole});
  }
  brixVector Direction() {
    const std::array directions{brixVector(0.6F, -0.8F, 0), brixVector(0.8F, 0.6F, 0), brixVector(8, 6, 0)};
    return directions[Below(10) % 3];
  }
  brixMatrix4x4 Matrix() {
    const auto far = static_cast<float>(std::exp2(-static_cast<double>(Below(150))));  // towards the least numbers
    const std::size_t kind = Below(5);
    const auto scale = [&] { return kind == 0 ? far : kind == 1 ? Size() : OneOf({1, 1, 1, -1, 0, 1e-7F}); };
    brixMatrix4x4 matrix = GetScaleMatrix({scale(), scale(), scale()});
    if (kind == 2) matrix[1] = {matrix[0][0], 1.0001F * matrix[0][1], Size(), 0};  // skewed
    matrix = matrix * CreateRotationMatrixForNormalAngle({1, 2, 3}, Below(2) == 0 ? 0.0 : Ordinary());
    return Below(2) == 0 ? matrix : matrix * GetDisplacementMatrix({10, Size(), 0.01F});
  }

private:
  std::mt19937 Random{1};
  float Last = 1;
};

std::unique_ptr<brixBaseRevSurface> RandomSolid(RandomValues& random) {
  const auto make = [](auto solid, auto set, const auto&... values) {
    (solid.get()->*set)(values...);
    return std::unique_ptr<brixBaseRevSurface>(std::move(solid));
  };
  // Along a way to small sizes points begin to come together in the distance, first here and there and at last all.
  const float small = random.Below(2) == 0 ? 1 : std::pow(0.6F, static_cast<float>(random.Below(40)));
  const float radius = small * random.Size();
  const float other = small * random.Size();
  const float third = small * random.Size();
  const float whole = random.Below(2) == 0 ? WholeTurn : random.Angle(WholeTurn);
  const float from = whole == WholeTurn ? 0 : random.Angle(WholeTurn);
  const brixVector start = random.Direction();
  switch (random.Below(4)) {
    case 0: return make(std::make_unique<brixCone>(), &brixCone::SetCone, other, radius, third);
    case 1: {
      const float ratio = random.OneOf({1, 0, -1, third});
      const float to = random.Below(100) == 0 ? 4096 * WholeTurn : whole;  // there are no more steps than 4096
      return make(std::make_unique<brixCylinder>(), &brixCylinder::SetCylinder, other, radius, ratio, start, from, to);
    }
    case 2: {
      const brixBool filled = random.Below(2) == 0 ? brixTrue : brixFalse;
      return make(std::make_unique<brixDisk>(), &brixDisk::SetDisk, other, radius, brixMatrix4x4(), filled);
    }
    default:
      return make(std::make_unique<brixSphere>(), &brixSphere::SetSphere, brixFloatPoint(other, 0, 1), start,
                  random.Direction(), radius, from, whole, random.Angle(HalfTurn), random.Angle(HalfTurn));
  }
}

TEST(TriangleCount, SolidsOfEveryKind) {
  RandomValues random;
  for (int i = 0; i < 20'000 && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const auto solid = RandomSolid(random);
    solid->ApplyMatrixToGeometry(random.Matrix(), brixTrue);
    ExpectCounted(*solid);
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

// Places on a small square, so that many of them coincide, lie on lines and make outlines that cross.
TEST(TriangleCount, FacesOfEveryKind) {
  RandomValues random;
  for (int i = 0; i < 80'000 && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const std::size_t side = std::array<std::size_t, 4>{2, 3, 6, 40}[random.Below(4)];
    const std::size_t plane = random.Below(6);
    brixFloatPointArray outline;
    for (std::size_t size = random.Below(21); size > 0; --size) {
      const auto u = static_cast<float>(random.Below(side));
      const auto v = static_cast<float>(random.Below(side));
      const auto w = static_cast<float>(random.Below(side));
      const float odd = size == 1 ? random.OneOf({NotANumber, Infinity}) : 0;
      outline.Append(std::array<brixFloatPoint, 6>{
          {{u, v, 7.1F}, {-300, u, v}, {v, 0, u}, {u, v, u + v}, {u, v, w}, {odd, v, odd * u}}}[plane]);
    }
    CKelPolygon polygon;
    polygon.SetPolyline(outline, true);
    ExpectCounted(polygon);
  }
}

// Far from the origin what the products in the sum of a normal are rounded by is longer than the normal itself.
TEST(TriangleCount, FacesSeenFromASideByRounding) {
  for (const float z : {0.0F, 1.0F, 1e9F, 1e30F}) {
    for (const float size : {1.0F, 1e-3F, 1e-9F}) {
      CKelPolygon polygon;
      polygon.SetPolyline(Points({{1, 1, z}, {1 + size, 1, z}, {1 + size, 1 + size, z}, {1, 1 + size, z}}), true);
      ExpectCounted(polygon);
    }
  }
}

TEST(TriangleCount, ListsOfFacesStripsAndCells) {
  const brixFloatPointArray points = Points({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {1, 1, 0}, {0, 4, 0}, {0, 0, 0}});
  for (const auto& faces :
       {Ints({3, 0, 1, 2, 3, 0, 1, 6, 3, -1, 0, 1, 4, 0, 1, 9, 2}), Ints({0, 2, 0, 1, 5, 0, 1, 2, 3, 4}),
        Ints({6, 0, 1, 2, 3, 4, 5, -3, 4, 0, 1}), Ints({3, 0, 0, 0, 4, 1, 1, 1, 1}), Ints({})}) {
    CKelPolyface face;
    face.SetPoints(points, faces, true);
    ExpectCounted(face);
  }
  for (const auto& [rows, columns] : {std::pair(2, 3), {3, 2}, {1, 6}, {6, 1}, {0, 0}, {1, 1}}) {
    for (const int closed : {0, 1, 2, 3}) {
      CKelPolyMesh mesh;
      mesh.SetPoints(points, rows, columns, closed % 2 != 0, closed / 2 != 0);
      ExpectCounted(mesh);
    }
  }
  for (const auto& counts : {Ints({3, 3}), Ints({1, 2, 3}), Ints({-1, 9}), Ints({})}) {
    CKelMultipleTriangleStrip strips;
    strips.SetStrips(points, {}, counts);
    ExpectCounted(strips);
  }
  CKelTriangleStrip strip;
  strip.SetPoints(points, {});
  ExpectCounted(strip);
  CKelPolyline line;
  line.SetPolyline(points, true);
  ExpectCounted(line);
  ExpectCounted(brixBox());
  ExpectCounted(brixDot());
}

}  // namespace
