#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "support/Model.h"

namespace {

const std::string Plate = "Coordinate3 { point [ 0 0 0, 1 0 0, 1 1 0, 0 1 0, 9 9 9 ] } ";
const std::string Colours = "Material { diffuseColor [ 1 0 0, 0 1 0, 0 0 1, 1 1 0, 0 1 1, 1 0 1 ] } ";

std::vector<int> Faces(const Model& model, std::size_t index) {
  const auto& face = dynamic_cast<const CKelPolyface&>(model.Object(index));
  return {face.GetFaceList().View().begin(), face.GetFaceList().View().end()};
}

TEST(IndexedSet, FacesAreOneObjectOverTheirPoints) {
  const Model model = Load(
      Plate + "IndexedFaceSet { coordIndex [ 3, 2, 1, -1, -1, 3, 1, 0 ] } IndexedFaceSet { coordIndex [ 4 0 1 ] }");
  ASSERT_EQ(model.Classes(), "CKelPolyface CKelPolyface");
  EXPECT_EQ(Faces(model, 0), (std::vector<int>{3, 3, 2, 1, 3, 3, 1, 0}));
  EXPECT_EQ(model.Points(0).size(), 4U) << "the point that no index names is gone";
  EXPECT_EQ(Faces(model, 1), (std::vector<int>{3, 2, 0, 1})) << "and the next set sees all of them again";
  EXPECT_NEAR(model.Area(0), 1.0, 1e-6);
}

TEST(IndexedSet, FieldsDecideOnTheResult) {
  const std::string faces = "coordIndex [ 0 1 2 ] ";
  const auto count = [](const std::string& fields) { return Load(Plate + "IndexedFaceSet { " + fields + "}").Size(); };
  EXPECT_EQ(count(faces), 1U);
  EXPECT_EQ(count(faces + "materialIndex [ ] "), 0U) << "the last field has failed";
  EXPECT_EQ(count(faces + "normalIndex [ 0 1 ] solid FALSE ccw TRUE creaseAngle 0.5 "), 1U);
  EXPECT_EQ(count(faces + "coord Coordinate { point [ ] } "), 0U);
  EXPECT_EQ(count("coordIndex [ 0 1 ] "), 0U) << "two points make no face";
  EXPECT_EQ(count(""), 0U);
  EXPECT_EQ(count("normalIndex [ 0 ] "), 1U) << "all points, and no face";
}

TEST(IndexedSet, NestedNodesServeTheSet) {
  const Model model = Load(R"(Material { diffuseColor 1 1 0 }
    DEF f IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } normal Normal { vector [ 0 0 1 ] }
      color Color { color [ 0 0 1 ] } colorPerVertex FALSE coordIndex [ 0 1 2 -1 ] }
    Cube {} USE f)");
  ASSERT_EQ(model.Classes(), "CKelPolyface brixBox") << "the fields have cleared the name";
  EXPECT_THAT(model.Diffuse(0), IsColour(0, 0, 1));
  EXPECT_THAT(model.Diffuse(1), IsColour(1, 1, 0)) << "the colours before the set are back";
  EXPECT_EQ(model.Name(0), "");
}

// An empty list is one run without indices: a line without points, but no part, which has no vertices to take a colour
// from.
TEST(IndexedSet, AnEmptyListOfLines) {
  const std::string set = "IndexedLineSet { coordIndex [ ] coord Coordinate { point [ 0 0 0, 1 1 1 ] } } ";
  EXPECT_EQ(Load(set).Classes(), "CKelPolyline");
  EXPECT_EQ(Load("MaterialBinding { value PER_VERTEX } " + set).Classes(), "");
}

// Per face the position counts, through the material indices if there are any; per vertex the mean of the vertices.
TEST(IndexedSet, MaterialsOfParts) {
  struct Case {
    std::string Binding;
    std::string MaterialIndex;
    brixChroma First;
    brixChroma Second;
  };
  const std::string faces = "coordIndex [ 0 1 2 -1 0 2 3 -1 ] ";
  for (const auto& [binding, indices, first, second] :
       {Case{"PER_FACE", "", {1, 0, 0, 1}, {0, 1, 0, 1}},
        Case{"PER_FACE_INDEXED", "materialIndex [ 2 1 0 ] ", {0, 0, 1, 1}, {0, 1, 0, 1}},
        Case{"PER_FACE_INDEXED", "materialIndex [ -2 -1 9 ] ", {1, 0, 0, 1}, {1, 1, 1, 1}},
        Case{"PER_FACE_INDEXED", "", {1, 0, 0, 1}, {1, 0, 0, 1}},
        Case{"PER_VERTEX", "", {1 / 3.0F, 1 / 3.0F, 1 / 3.0F, 1}, {2 / 3.0F, 2 / 3.0F, 2 / 3.0F, 1}},
        Case{"PER_VERTEX_INDEXED", "materialIndex [ 0 0 0 -1 1 1 99 ] ", {1, 0, 0, 1}, {0, 2 / 3.0F, 0, 1}},
        Case{"PER_PART_INDEXED", "", {1, 0, 0, 1}, {1, 0, 0, 1}}}) {
    SCOPED_TRACE(binding + indices);
    const Model model =
        Load(Plate + Colours + "MaterialBinding { value " + binding + " } IndexedFaceSet { " + indices + faces + "}");
    ASSERT_EQ(model.Classes(), "CKelPolygon CKelPolygon");
    EXPECT_THAT(model.Diffuse(0), IsColour(first.red, first.green, first.blue));
    EXPECT_THAT(model.Diffuse(1), IsColour(second.red, second.green, second.blue));
  }
}

// A run that names a point outside is left out, and the counters go on as if it stood.
TEST(IndexedSet, RunsOutsideThePointsAreLeftOut) {
  const std::string runs = "coordIndex [ 0 1 2 -1 0 1 77 -1 0 -5 2 -1 0 2 3 -1 ] ";
  const Model faces = Load(Plate + "IndexedFaceSet { " + runs + "}");
  ASSERT_EQ(faces.Size(), 1U);
  EXPECT_EQ(Faces(faces, 0), (std::vector<int>{3, 0, 1, 2, 3, 0, 2, 3}));
  const Model parts = Load(Plate + Colours + "MaterialBinding { value PER_FACE } IndexedFaceSet { " + runs + "}");
  ASSERT_EQ(parts.Size(), 2U);
  EXPECT_THAT(parts.Diffuse(1), IsColour(1, 1, 0)) << "the fourth part";
  EXPECT_EQ(Load("IndexedLineSet { coordIndex [ 0 1 ] } Cube {}").Classes(), "brixBox") << "no coordinates at all";
}

// The vertices in use are found in two ways, by what there is more of; both give the same.
TEST(IndexedSet, CompactingFewOfManyPoints) {
  brixFloatPointArray points(1000);
  for (int i = 0; i < 1000; ++i) points.Edit()[static_cast<std::size_t>(i)].x = static_cast<float>(i);
  for (const int repeats : {1, 100}) {
    brixFloatPointArray kept = points;
    brixIntArray runs;
    for (int i = 0; i < repeats; ++i) {
      for (const int value : {4, 900, 5, 1000, 5}) runs.Append(value);
    }
    ASSERT_TRUE(CVRMLSeparator::CompactVertices(kept, runs));
    ASSERT_EQ(kept.GetSize(), 2U);
    EXPECT_EQ(kept.View()[1].x, 900.0F);
    EXPECT_THAT(std::vector<int>(runs.View().begin(), runs.View().begin() + 5), testing::ElementsAre(4, 1, 0, 1000, 0));
  }
  brixIntArray all;
  brixFloatPointArray one(1);
  EXPECT_FALSE(CVRMLSeparator::CompactVertices(one, all));
  all.Append(1);
  all.Append(0);
  EXPECT_FALSE(CVRMLSeparator::CompactVertices(one, all));
}

// An L of 3 unit squares, and a bow tie that no triangulation can be right for.
TEST(IndexedSet, ConcaveFacesAreTriangulated) {
  const Model model = Load(R"(Coordinate3 { point [ 0 0 0, 2 0 0, 2 1 0, 1 1 0, 1 2 0, 0 2 0 ] }
    Rotation { rotation 1 1 0 1 } IndexedFaceSet { coordIndex [ 0 1 2 3 4 5 ] } IndexedFaceSet { coordIndex [ 0 2 1 5 ] })");
  ASSERT_EQ(model.Size(), 2U);
  EXPECT_EQ(model.Triangles(0), 4U);
  EXPECT_NEAR(model.Area(0), 3.0, 1e-5);
  EXPECT_EQ(model.Triangles(1), 2U);
}

}  // namespace
