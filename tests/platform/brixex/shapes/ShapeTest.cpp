#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"
#include "support/Arrays.h"
#include "support/Model.h"

namespace {

TEST(Polygon, FacesThatAreNotFlat) {
  CKelPolygon polygon;
  polygon.SetPolyline(Points({{0, 0, 0}, {2, 0, 0.1F}, {2, 2, 0}, {0, 2, 0.1F}}), true);
  brixEvaluation evaluation;
  EXPECT_EQ(polygon.Evaluate(0, evaluation), brixEOK);
  EXPECT_EQ(evaluation.Triangles.size(), 6U);
  for (const brixVector& normal : evaluation.Normals) EXPECT_NEAR(normal.z, 1.0, 1e-6);
  polygon.SetPolyline(Points({{0, 0, 0}, {2, 0, 0}}), true);
  EXPECT_EQ(polygon.Evaluate(0, evaluation), brixEOK);
  EXPECT_EQ(evaluation.Segments, (std::vector<unsigned>{0, 1})) << "a line";
  polygon.SetPolyline({}, true);
  EXPECT_EQ(polygon.Evaluate(0, evaluation), brixEFailed);
}

TEST(PolyMesh, GridsAreCutToTheirPoints) {
  CKelPolyMesh mesh;
  mesh.SetPoints(brixFloatPointArray(7), 5, 3, false, false);
  EXPECT_EQ(mesh.GetRows(), 2);
  EXPECT_EQ(mesh.GetPoints().GetSize(), 6U);
  for (const int size : {0, -5}) {
    mesh.SetPoints(brixFloatPointArray(7), size, size, true, true);
    brixEvaluation evaluation;
    EXPECT_EQ(mesh.Evaluate(0, evaluation), brixEFailed);
  }
}

TEST(Polyface, ListsThatBreakOff) {
  CKelPolyface face;
  face.SetPoints(Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}), Ints({3, 0, 1, 2, -1, 4, 0, 1, 3, 2, 3, -1}), true);
  brixEvaluation evaluation;
  EXPECT_EQ(face.Evaluate(0, evaluation), brixEOK);
  EXPECT_EQ(evaluation.Triangles.size(), 6U) << "two faces of three points that are there";
}

TEST(TriangleStrip, GivenNormalsCountWhenTheyMatch) {
  brixVectorArray normals;
  for (int i = 0; i < 3; ++i) normals.Append({0, 0, -2});
  CKelTriangleStrip strip;
  strip.SetPoints(Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}), normals);
  brixEvaluation evaluation;
  strip.Evaluate(0, evaluation);
  EXPECT_EQ(evaluation.Normals[0].z, -1.0F);
  strip.SetPoints(Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}), normals);
  strip.Evaluate(0, evaluation);
  EXPECT_EQ(evaluation.Normals[0].z, 1.0F) << "computed";
  strip.SetPoints(Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}), normals);
  brixMatrix4x4 slope = GetScaleMatrix({-2, 3, 4});
  slope[0][2] = -2;  // along x it rises by 45 degrees
  strip.ApplyMatrixToGeometry(slope, brixTrue);
  const float half = std::sqrt(0.5F);
  EXPECT_THAT(brixFloatPoint(strip.GetNormals().View()[0]), IsPoint(-half, 0, half));
}

}  // namespace
