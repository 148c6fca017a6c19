#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "support/Model.h"

namespace {

TEST(Matrix, ShortestRotations) {
  const auto turned = [](const brixVector& from, const brixVector& to, const brixVector* axis) {
    return brixFloatPoint(from * CreateRotationMatrixForVectors(from, to, axis));
  };
  EXPECT_THAT(turned({0, 1, 0}, {1, 0, 0}, nullptr), IsPoint(1, 0, 0));
  EXPECT_THAT(turned({1, 2, 3}, {3, -6, 9}, nullptr), IsPoint(1, -2, 3));
  const brixVector none;
  for (const brixVector& v : {brixVector(0, 1, 0), brixVector(1, 2, 3), brixVector(3, 1, -2), brixVector(-2, 3, 1)}) {
    EXPECT_THAT(turned(v, -v, nullptr), IsPoint(-v.x, -v.y, -v.z));
    EXPECT_THAT(turned(v, -v, &none), IsPoint(-v.x, -v.y, -v.z));
  }
  const brixVector z(0, 0, 1);
  const brixMatrix4x4 half = CreateRotationMatrixForVectors({0, 1, 0}, {0, -1, 0}, &z);
  EXPECT_THAT(brixFloatPoint(1, 0, 0) * half, IsPoint(-1, 0, 0));
  const brixVector x(1, 0, 0);
  const brixMatrix4x4 nearly = CreateRotationMatrixForVectors({0, 1, 0}, {5e-8F, -1, 0}, &x);
  EXPECT_THAT(brixFloatPoint(1, 0, 0) * nearly, IsPoint(-1, 0, 0)) << "not opposite: they have an axis of their own";
  EXPECT_TRUE(IsIdentityMatrix(CreateRotationMatrixForVectors({0, 0, 0}, {0, 1, 0}, nullptr)));
  EXPECT_TRUE(IsIdentityMatrix(CreateRotationMatrixForNormalAngle({0, 0, 0}, 1.0)));
  EXPECT_THAT(brixFloatPoint(1, 0, 0) * CreateRotationMatrixForNormalAngle({0, 0, 5}, std::numbers::pi / 2),
              IsPoint(0, 1, 0));
  EXPECT_THAT(brixFloatPoint(1, 2, 3) * CreateRotationMatrixForNormalAngle({1, 1, 1}, 2 * std::numbers::pi / 3),
              IsPoint(3, 1, 2));
  EXPECT_THAT(brixFloatPoint(1, 2, 3) * CreateMatrixFromPlane(brixPlane({7, 8, 9}, {2, 0, 0})), IsPoint(10, 10, 8));
}

TEST(Matrix, InversesAndAngles) {
  const brixMatrix4x4 m =
      GetScaleMatrix({2, 4, 8}) * CreateRotationMatrixForNormalAngle({1, 2, 3}, 0.5) * GetDisplacementMatrix({1, 2, 3});
  EXPECT_TRUE(IsIdentityMatrix(m * GetInverseMatrix(m)));
  const brixMatrix4x4 turn = CreateRotationMatrixForNormalAngle({1, 1, 1}, 2 * std::numbers::pi / 3);
  EXPECT_TRUE(IsIdentityMatrix(turn * GetInverseMatrix(turn))) << "no pivot on the diagonal";
  EXPECT_FALSE(IsIdentityMatrix(GetScaleMatrix({1, 0.99999F, 1})));
  EXPECT_TRUE(IsIdentityMatrix(GetInverseMatrix(GetScaleMatrix({1, 0, 1})))) << "singular";
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({1, 0, 0}, {0, 2, 0}), 90.0);
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({1, 0, 0}, {-3, 0, 0}), 180.0);
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({0, 0, 0}, {0, 2, 0}), 0.0);
}

}  // namespace
