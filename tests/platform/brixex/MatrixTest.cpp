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
  EXPECT_THAT(turned({0, 1, 0}, {0, -1, 0}, nullptr), IsPoint(0, -1, 0));
  const brixVector z(0, 0, 1);
  const brixMatrix4x4 half = CreateRotationMatrixForVectors({0, 1, 0}, {0, -1, 0}, &z);
  EXPECT_THAT(brixFloatPoint(1, 0, 0) * half, IsPoint(-1, 0, 0));
  EXPECT_TRUE(IsIdentityMatrix(CreateRotationMatrixForVectors({0, 0, 0}, {0, 1, 0}, nullptr)));
  EXPECT_TRUE(IsIdentityMatrix(CreateRotationMatrixForNormalAngle({0, 0, 0}, 1.0)));
  EXPECT_THAT(brixFloatPoint(1, 0, 0) * CreateRotationMatrixForNormalAngle({0, 0, 5}, std::numbers::pi / 2),
              IsPoint(0, 1, 0));
}

TEST(Matrix, InversesAndAngles) {
  const brixMatrix4x4 m =
      GetScaleMatrix({2, 4, 8}) * CreateRotationMatrixForNormalAngle({1, 2, 3}, 0.5) * GetDisplacementMatrix({1, 2, 3});
  EXPECT_TRUE(IsIdentityMatrix(m * GetInverseMatrix(m)));
  EXPECT_TRUE(IsIdentityMatrix(GetInverseMatrix(GetScaleMatrix({1, 0, 1})))) << "singular";
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({1, 0, 0}, {0, 2, 0}), 90.0);
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({1, 0, 0}, {-3, 0, 0}), 180.0);
  EXPECT_DOUBLE_EQ(CalculateAngleBetweenVectors({0, 0, 0}, {0, 2, 0}), 0.0);
}

}  // namespace
