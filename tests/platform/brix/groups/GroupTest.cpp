#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "qelvrml/platform/brix/solids/brixDot.h"
#include "qelvrml/platform/brixex/CKelGroup.h"
#include "qelvrml/platform/brixex/brixMatrixFunctions.h"

namespace {

TEST(BBox, PointsThatAreNotNumbersStayOutside) {
  brixBBox box;
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const brixFloatPoint& p : {brixFloatPoint(nan, 0, 0), {0, nan, 0}, {0, 0, nan}}) box.Add(p);
  EXPECT_TRUE(box.IsEmpty());
  EXPECT_EQ(box.GetLargestDimension(), 0.0F);
  box.Add(brixFloatPoint(-1, 2, 3));
  box.Add(brixBBox());
  box.Add(brixFloatPoint(1, 2, 8));
  EXPECT_EQ(box.GetLargestDimension(), 5.0F);
}

TEST(Group, OwnsWhatItTakesOver) {
  CKelGroup child;
  brixDot dot;
  CKelGroup group;
  EXPECT_FALSE(group.AddGroup(nullptr, brixTrue));
  EXPECT_FALSE(group.AddGroup(&group, brixTrue));
  EXPECT_FALSE(group.AddObject(nullptr, brixMatProps(), brixTrue));
  EXPECT_TRUE(group.AddGroup(&child, brixFalse));
  EXPECT_TRUE(child.AddObject(&dot, brixMatProps(), brixFalse));
  EXPECT_TRUE(group.AddObject(new brixDot, brixMatProps(), brixTrue));
  EXPECT_EQ(group.GetObjectAt(1), nullptr);
  EXPECT_EQ(group.GetGroupAt(-1), nullptr);
  dot.SetDot({4, 0, 0});
  group.RecursiveUpdateBBox();
  EXPECT_EQ(group.GetBBox().GetLargestDimension(), 4.0F);
  group.ApplyMatrixToGeometry(GetScaleMatrix({2, 2, 2}), brixTrue);
  EXPECT_EQ(dot.GetDot().x, 8.0F);
  EXPECT_NE(group.GetObjectAt(0)->GetId(), dot.GetId());
}

}  // namespace
