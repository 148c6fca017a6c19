#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "qelvrml/platform/brixex/brixMatrixFunctions.h"
#include "support/Model.h"

namespace {

// Diffuse colour of a cube behind a material.
brixChroma Behind(const std::string& material) { return Load(material + " Cube {}").Diffuse(0); }

TEST(Material, OneValueOrAList) {
  EXPECT_THAT(Behind("Material { diffuseColor 1 0 0 }"), IsColour(1, 0, 0));
  EXPECT_THAT(Behind("Material { diffuseColor [ 1 0 0, 0 1 0 ] unknown 5 transparency [ 0.5 ] }"),
              IsColour(1, 0, 0, 0.5F));
  EXPECT_THAT(Behind("Material { diffuseColor 1 0 0 } Material { }"), IsColour(1, 1, 1)) << "the second replaces all";
  EXPECT_THAT(Behind("Material { transparency word diffuseColor 0 0 1 }"), IsColour(0, 0, 1));
  EXPECT_THAT(Behind("Material { emissiveColor 0 1 1 }"), IsColour(0, 1, 1));
}

// (1, 0.5, 0) x 0.5, whatever the order of the fields; an intensity near zero counts as none.
TEST(Material, AmbientIntensityDerivesAmbientColours) {
  CVRMLParser parser;
  parser.DefineSeparator();
  const auto ambientOf = [&parser](const std::string& text) {
    parser.GetIOManager()->StartBufferReading(text.c_str(), static_cast<int>(text.size()));
    EXPECT_TRUE(parser.ParseMaterial());
    return parser.GetCurrentSeparator()->GetAmbientColor();
  };
  EXPECT_THAT(ambientOf("Material { ambientColor 1 1 1 ambientIntensity 0.5 diffuseColor 1 0.5 0 }").View()[0],
              IsColour(0.5F, 0.25F, 0, 1));
  EXPECT_THAT(ambientOf("Material { ambientColor 1 1 1 ambientIntensity 0.0000001 }").View()[0], IsColour(1, 1, 1));
  EXPECT_TRUE(ambientOf("Material { ambientIntensity 0.5 }").IsEmpty());
  EXPECT_TRUE(ambientOf("Material { ambientIntensity word }").IsEmpty());
  EXPECT_TRUE(parser.GetCurrentSeparator()->GetShininess().IsEmpty()) << "a field that is missing is empty";
}

TEST(Color, ReplacesTheDiffuseColourOnly) {
  EXPECT_THAT(Behind("Material { transparency 0.5 } Color { color [ 0 1 0, 1 0 0 ] }"), IsColour(0, 1, 0, 0.5F));
  EXPECT_THAT(Behind("Material { diffuseColor 1 0 0 } Color { color [ ] }"), IsColour(1, 0, 0));
  EXPECT_THAT(Behind("Material { diffuseColor 1 0 0 } Color { }"), IsColour(1, 0, 0));
}

TEST(Binding, TheLastValueCounts) {
  struct Case {
    std::string Node;
    VRMLBindingTypes Binding;
  };
  CVRMLParser parser;
  CKelWorld world;
  parser.SetWorld(&world);
  parser.DefineSeparator();
  for (const auto& [node, binding] :
       {Case{"MaterialBinding { }", VRMLBindingOverall}, Case{"MaterialBinding { value DEFAULT }", VRMLBindingOverall},
        Case{"MaterialBinding { value PER_VERTEX PER_FACE }", VRMLBindingPerFace},
        Case{"MaterialBinding { value PER_VERTEX_INDEXED", VRMLBindingPerVertexIndexed},
        Case{"MaterialBinding { value per_part }", VRMLBindingPerPart}}) {
    parser.GetIOManager()->StartBufferReading(node.c_str(), static_cast<int>(node.size()));
    EXPECT_TRUE(parser.ParseBinding());
    EXPECT_EQ(parser.GetCurrentSeparator()->GetMaterialBinding(), binding) << node;
  }
  EXPECT_EQ(parser.GetCurrentSeparator()->GetNormalBinding(), VRMLBindingDefault);
}

// Centre of a cube of size 2 behind transformations.
brixFloatPoint Moved(const std::string& transformations) { return Load(transformations + " Cube {}").Centre(0); }
brixFloatPoint Sized(const std::string& transformations) { return Load(transformations + " Cube {}").Extents(0); }

TEST(Transform, SingleNodes) {
  EXPECT_THAT(Moved("Translation { translation 1 2 3 }"), IsPoint(1, 2, 3));
  EXPECT_THAT(Moved("Translation { translation [ 1 2 3 ] }"), IsPoint(1, 2, 3));
  EXPECT_THAT(Moved("Translation { translation 1 }"), IsPoint(1, 0, 0));
  EXPECT_THAT(Sized("Scale { scaleFactor 2 }"), IsPoint(4, 2, 2));
  EXPECT_THAT(Moved("MatrixTransform { matrix 1 0 0 0 0 1 0 0 0 0 1 0 5 6 7 1 }"), IsPoint(5, 6, 7));
  EXPECT_THAT(Sized("MatrixTransform { matrix 2 }"), IsPoint(4, 2, 2));
  EXPECT_THAT(Sized("MatrixTransform { }"), IsPoint(2, 2, 2));
}

// The scale comes behind the rotation: (1 0 0) turns to (0 1 0), which is doubled in y only.
TEST(Transform, ComposesInItsOwnOrder) {
  const std::string inner = " Translation { translation 1 0 0 }";
  EXPECT_THAT(Moved("Transform { rotation 0 0 1 1.5707963 scaleFactor 1 2 1 }" + inner), IsPoint(0, 2, 0));
  EXPECT_THAT(Moved("Transform { center 1 0 0 rotation 0 0 1 3.1415927 translation 0 0 5 }"), IsPoint(2, 0, 5));
  // Scaling by (2 1 1) in a frame turned by a quarter about Z stretches the y direction.
  EXPECT_THAT(
      Moved("Transform { scaleFactor 2 1 1 scaleOrientation 0 0 1 1.5707963 } Translation { translation 1 1 0 }"),
      IsPoint(1, 2, 0));
  EXPECT_THAT(Moved("Transform { }"), IsPoint(0, 0, 0));
  EXPECT_THAT(Sized("Transform { scaleFactor 0 0 0 }"), IsPoint(0, 0, 0));
}

// Factors that change nothing are left out; the product is the same to the bit.
TEST(Transform, IsTheProductOfAllItsFactors) {
  constexpr float Infinity = std::numeric_limits<float>::infinity();
  std::mt19937 random(3);
  const auto one = [&random] { return static_cast<float>(random() % 2001) / 1000.0F - 1.0F; };
  const auto turn = [&](std::uint64_t kind) {
    return kind == 0 ? brixMatrix4x4()
                     : CreateRotationMatrixForNormalAngle({one(), one(), kind == 1 ? 0 : one()}, one());
  };
  const auto point = [&](std::uint64_t kind) {
    brixFloatPoint p(one(), one(), kind % 2 == 0 ? 0.0F : one());
    if (kind == 1) p = {0.0F, -0.0F, 0.0F};
    if (kind == 2) p.y = std::vector<float>{Infinity, -Infinity, NAN, 3e38F, 1e-40F, -0.0F}[random() % 6];
    return p;
  };
  for (int i = 0; i < 3000 && !HasFailure(); ++i) {
    const brixFloatPoint translation = point(random() % 8);
    const brixFloatPoint scale = point(random() % 8);
    const brixFloatPoint center = point(random() % 2 == 0 ? 1 : random() % 8);
    brixMatrix4x4 rotation = turn(random() % 3);
    if (random() % 50 == 0) rotation[1][2] = std::vector<float>{Infinity, NAN}[random() % 2];
    const brixMatrix4x4 orientation = turn(random() % 2 == 0 ? 0 : random() % 3);
    const brixMatrix4x4 back = GetDisplacementMatrix({-center.x, -center.y, -center.z});
    const brixMatrix4x4 expected =
        (back * rotation * orientation * GetScaleMatrix(scale) * GetInverseMatrix(orientation) *
         GetInverseMatrix(back) * GetDisplacementMatrix(translation)) *
        brixMatrix4x4();
    CVRMLParser parser;
    parser.DefineSeparator();
    parser.DefineTransform(translation, scale, rotation, orientation, center);
    const brixMatrix4x4 matrix = parser.GetCurrentSeparator()->GetTransformation();
    for (std::size_t k = 0; k < 16; ++k) {
      const float value = matrix[k / 4][k % 4];
      const float product = expected[k / 4][k % 4];
      EXPECT_TRUE(std::isnan(product) ? std::isnan(value)
                                      : std::bit_cast<unsigned>(value) == std::bit_cast<unsigned>(product))
          << i << ": " << value << " for " << product;
    }
  }
}

TEST(Transform, AScopeOfItsOwnInVersion2) {
  const Model model = Load20("Transform { children [ Box {} ] translation 1 2 3 bboxSize 1 1 1 } Box {}");
  ASSERT_EQ(model.Classes(), "brixBox brixBox");
  EXPECT_THAT(model.Centre(0), IsPoint(1, 2, 3)) << "the children are read last";
  EXPECT_THAT(model.Centre(1), IsPoint(0, 0, 0));
  const Model single = Load20("DEF t Transform { translation 1 0 0 children Box {} } Transform { } USE t Sphere {}");
  EXPECT_EQ(single.Classes(), "brixSphere brixBox brixBox");
  EXPECT_TRUE(single.Group("t"));
  EXPECT_EQ(Load20("Transform { children Box {} children Sphere {} removeChildren Box {} addChildren NULL }").Classes(),
            "brixSphere")
      << "the last field is read";
}

// DEF'ed nodes inside one another are passed over once for each, not twice for each level.
TEST(Transform, NestedDefsCostTheirText) {
  std::string scene;
  for (int i = 0; i < 400; ++i) scene += "Transform { translation 1 0 0 children DEF n" + std::to_string(i) + " ";
  scene += "Box {}" + std::string(400, '}');
  const Model model = Load20(scene);
  ASSERT_EQ(model.Classes(), "brixBox");
  EXPECT_THAT(model.Centre(0), IsPoint(400, 0, 0));
}

TEST(Coordinate, EachNodeReplacesTheLast) {
  const std::string set = " IndexedLineSet { coordIndex [ 0 1 ] } ";
  const Model model = Load("Coordinate3 { point [ 9 9 9, 8 8 8 ] } Separator { Coordinate3 { point [ 0 0 0, 1 0 0 ] }" +
                           set + "}" + set);
  ASSERT_EQ(model.Size(), 2U);
  EXPECT_THAT(model.Points(0)[1], IsPoint(1, 0, 0));
  EXPECT_THAT(model.Points(1)[1], IsPoint(8, 8, 8));
  EXPECT_EQ(Load("Coordinate3 { point [ 0 0 0, 1 0 0 ] } Coordinate3 { point [ ] }" + set).Size(), 1U);
}

// Without brackets the current token stays on the last number, so that the node's own } closes the scope around it.
TEST(Coordinate, OnePointEndsTheScope) {
  const Model model = Load("Separator { Translation { translation 5 0 0 } Coordinate3 { point 1 2 3 } Cube {} }");
  ASSERT_EQ(model.Size(), 1U);
  EXPECT_THAT(model.Centre(0), IsPoint(0, 0, 0));
}

}  // namespace
