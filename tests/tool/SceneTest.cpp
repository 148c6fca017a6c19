#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/Model.h"
#include "support/Tool.h"

namespace {

using Json = nlohmann::json;

Json Dump(const std::string& path) { return Json::parse(RunTool("dump " + path).Out); }

/// The first place where two dumps differ by more than single precision explains, or an empty string.
std::string Difference(const Json& expected, const Json& actual, const std::string& place = {}) {
  if (expected.is_number() && actual.is_number()) {
    const auto e = expected.get<double>();
    const auto a = actual.get<double>();
    const bool near = std::abs(e - a) <= 2e-5 * std::max({1.0, std::abs(e), std::abs(a)});
    return near ? std::string{} : place + ": " + expected.dump() + " is " + actual.dump();
  }
  if (!expected.is_structured()) return expected == actual ? std::string{} : place + ": " + actual.dump();
  if (expected.type() != actual.type() || expected.size() != actual.size()) return place + ": another size";
  for (const auto& [key, value] : expected.items()) {
    const Json& other = actual.is_array() ? actual[std::stoul(key)] : actual.value(key, Json{});
    const std::string difference = Difference(value, other, place + "/" + key);
    if (!difference.empty()) return difference;
  }
  return {};
}

TEST(Scenes, HoldWhatTheirFormulasGive) {
  int scenes = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QELVRML_TEST_SCENES "/models")) {
    std::filesystem::path path = entry.path();
    if (path.extension() != ".json") continue;
    const Json expected = Json::parse(ReadWholeFile(path.string()));
    EXPECT_EQ(Difference(expected, Dump(path.replace_extension("wrl").string())), "") << path;
    ++scenes;
  }
  EXPECT_EQ(scenes, 12);
}

/// All objects of a group and of its groups, without their names.
Json Objects(const Json& group) {
  Json all = group["objects"];
  for (Json& object : all) object.erase("name");
  for (const Json& inner : group["groups"])
    for (Json& object : Objects(inner)) all.push_back(std::move(object));
  return all;
}

struct Twice {
  const char* Node;
  const char* Before = "";
  const char* After = "";
};

/// A node and its use, in groups of their own, make the same objects.
void ExpectTwice(const char* header, const char* group, const char* end, const std::vector<Twice>& cases) {
  const TemporaryFolder folder;
  for (const Twice& node : cases) {
    const auto written = [&](const char* name, const char* what) {
      return std::string("DEF ") + name + group + node.Before + " " + what + node.After + end;
    };
    const std::string text = std::string(header) + "\n" +
                             written("first", (std::string("DEF n ") + node.Node).c_str()) +
                             written("second", "USE n ");
    const Json groups = Dump(folder.Write("twice.wrl", text))["world"]["groups"];
    ASSERT_EQ(groups.size(), 2) << node.Node;
    EXPECT_FALSE(Objects(groups[0]).empty()) << node.Node;
    EXPECT_EQ(Objects(groups[0]), Objects(groups[1])) << node.Node;
  }
}

constexpr const char* Square = " Coordinate3 { point [ 0 0 0, 1 0 0, 1 1 0, 0 1 0 ] } ";
constexpr const char* Cube = " Cube { height 3 } ";

TEST(Scenes, UseMakesWhatADefinitionMadeInVersionOne) {
  ExpectTwice(
      "#VRML V1.0 ascii", " Separator {", "}\n",
      {
          {"Cube { width 2 height 3 depth 4 }", "Translation { translation 1 2 3 }"},
          {"Sphere { radius 3 }", "Scale { scaleFactor 2 1 1 }"},
          {"Cone { parts SIDES bottomRadius 2 height 5 }", "Rotation { rotation 1 0 0 1 }"},
          {"Cylinder { parts (SIDES | TOP) radius 2 height 5 }", "Scale { scaleFactor 2 3 2 }"},
          {"PointSet { startIndex 1 numPoints 2 }", Square},
          {"Separator { IndexedLineSet { coordIndex [ 0 1 2 -1 2 3 ] } }", Square},
          {"Separator { IndexedFaceSet { coordIndex [ 0 1 2 3 -1 0 2 3 -1 ] } }", Square},
          {"Separator { MaterialBinding { value PER_FACE_INDEXED } Material { diffuseColor [ 1 0 0, 0 1 0 ] } "
           "IndexedFaceSet { "
           "coordIndex [ 0 1 2 -1 0 2 3 -1 ] materialIndex [ 1 0 ] } }",
           Square},
          {"Separator { TriangleStripSet { numVertices [ 4 ] } }", Square},
          {"Coordinate3 { point [ 0 0 0, 2 0 0, 0 2 0 ] }", "", "IndexedFaceSet { coordIndex [ 0 1 2 -1 ] }"},
          {"TextureCoordinate2 { point [ 0 0, 1 0, 1 1 ] }",
           "Coordinate3 { point [ 0 0 0, 1 0 0, 1 1 0 ] } Texture2 { image 1 1 1 7 }",
           "IndexedFaceSet { coordIndex [ 0 1 2 -1 ] textureCoordIndex [ 2 1 0 -1 ] }"},
          {"Texture2 { image 2 1 3 0xff0000 0x00ff00 }", Square,
           "TextureCoordinate2 { point [ 0 0, 1 0, 1 1 ] } IndexedFaceSet { coordIndex [ 0 1 2 -1 ] textureCoordIndex "
           "[ 0 1 2 -1 ] }"},
          {"Texture2Transform { translation 1 2 rotation 1 scaleFactor 2 3 }", Square, Cube},
          {"Material { diffuseColor 1 0 0 specularColor 0 1 0 emissiveColor 0 0 1 ambientColor 1 1 0 shininess 0.5 "
           "transparency 0.25 }",
           "", Cube},
          {"MaterialBinding { value PER_FACE }",
           "Material { diffuseColor [ 1 0 0, 0 1 0 ] } Coordinate3 { point [ 0 0 0, 1 0 0, "
           "1 1 0 ] }",
           "IndexedFaceSet { coordIndex [ 0 1 2 -1 2 1 0 -1 ] }"},
          {"ShapeHints { faceType CONVEX vertexOrdering CLOCKWISE shapeType SOLID creaseAngle 1 }", Square,
           "IndexedFaceSet { coordIndex [ 0 1 2 3 -1 ] }"},
          {"Translation { translation 1 2 3 }", "", Cube},
          {"Rotation { rotation 0 1 0 1 }", "", Cube},
          {"Scale { scaleFactor 1 2 3 }", "", Cube},
          {"MatrixTransform { matrix 1 0 0 0 0 2 0 0 0 0 1 0 5 6 7 1 }", "", Cube},
          {"Transform { translation 1 2 3 rotation 0 0 1 1 scaleFactor 2 2 2 center 1 1 1 }", "", Cube},
          {"Group { Material { diffuseColor 0 1 0 } Cube { } }", "Translation { translation 1 2 3 }", Cube},
          {"Separator { Translation { translation 9 0 0 } DEF inner Sphere { } USE inner }", "", Cube},
          {"TransformSeparator { Translation { translation 9 0 0 } Sphere { } }", "", Cube},
          {"Switch { whichChild 1 Sphere { } Cone { } Cylinder { } }", "Translation { translation 1 2 3 }", Cube},
          {"LOD { range [ 10, 20 ] Sphere { } Cone { } Cylinder { } }", "Translation { translation 1 2 3 }", Cube},
          {"WWWAnchor { name \"x.wrl\" Sphere { } }", "Translation { translation 1 2 3 }", Cube},
          {"DirectionalLight { direction 0 0 1 }", "", Cube},
          {"Info { string \"a\" }", "", Cube},
      });
}

constexpr const char* Triangle = "coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0, 0 1 0 ] }";

TEST(Scenes, UseMakesWhatADefinitionMadeInVersionTwo) {
  const std::string faces = std::string("Shape { geometry IndexedFaceSet { ") + Triangle +
                            " coordIndex [ 0 1 2 -1 0 2 3 -1 ] "
                            "texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1, 0 1 ] } normal Normal { vector [ 0 0 "
                            "1, 0 0 1, 0 0 1, 0 0 1 ] } } }";
  const std::string lines =
      std::string("Shape { geometry IndexedLineSet { ") + Triangle + " coordIndex [ 0 1 2 -1 0 2 3 -1 ] } }";
  const std::string points = std::string("Shape { geometry PointSet { ") + Triangle +
                             " color Color { color [ 1 0 0, 0 1 0, 0 0 1, 1 1 1 ] } } }";
  const char* shape = "Transform { translation 1 2 3 rotation 0 1 0 1 children [ Shape { geometry";
  const char* end = "} ] }";
  ExpectTwice(
      "#VRML V2.0 utf8", " Group { children [", "] }\n",
      {
          {"Box { size 2 3 4 }", shape, end},
          {"Sphere { radius 3 }", shape, end},
          {"Cone { side FALSE bottomRadius 3 }", shape, end},
          {"Cylinder { top FALSE height 5 radius 2 }", shape, end},
          {"ElevationGrid { xDimension 2 zDimension 3 xSpacing 2 zSpacing 4 height [ 0 1 2 3 4 5 ] color Color { color "
           "[ 1 0 0, "
           "0 1 0 ] } colorPerVertex FALSE }",
           shape, end},
          {"Extrusion { crossSection [ 0 0, 1 0, 1 1, 0 0 ] spine [ 0 0 0, 0 1 0, 1 2 0 ] scale [ 1 2 ] orientation [ "
           "0 1 0 1 ] }",
           shape, end},
          {faces.c_str()},
          {lines.c_str()},
          {points.c_str()},
          {"Coordinate { point [ 0 0 0, 2 0 0, 0 2 0 ] }",
           "Shape { geometry IndexedFaceSet { coordIndex [ 0 1 2 -1 ] coord", "} }"},
          {"TextureCoordinate { point [ 0 0, 1 0, 1 1 ] }",
           "Shape { appearance Appearance { texture PixelTexture { image 1 1 1 9 } } geometry IndexedFaceSet { coord "
           "Coordinate { "
           "point [ 0 0 0, 2 0 0, 0 2 0 ] } coordIndex [ 0 1 2 -1 ] texCoord",
           "} }"},
          {"Appearance { material Material { diffuseColor 1 0 0 shininess 0.5 } texture PixelTexture { image 1 1 1 9 } "
           "textureTransform TextureTransform { scale 2 2 } }",
           "Shape { appearance", "geometry Box { } }"},
          {"Material { diffuseColor 0 1 0 emissiveColor 0 0 1 transparency 0.5 ambientIntensity 0.5 }",
           "Shape { appearance Appearance { material", "} geometry Box { } }"},
          {"PixelTexture { image 2 1 3 0xff0000 0x00ff00 repeatS FALSE }", "Shape { appearance Appearance { texture",
           "} geometry Box { } }"},
          {"TextureTransform { center 1 1 rotation 2 scale 2 3 translation 4 5 }",
           "Shape { appearance Appearance { texture PixelTexture { image 1 1 1 9 } textureTransform",
           "} geometry Box { } }"},
          {"Shape { appearance Appearance { material Material { diffuseColor 1 1 0 } } geometry Sphere { radius 2 } }"},
          {"Transform { translation 1 2 3 rotation 0 0 1 1 scale 2 2 2 scaleOrientation 1 0 0 1 center 1 1 1 children "
           "[ Shape { "
           "geometry Box { } } DEF inner Shape { geometry Sphere { } } USE inner ] }",
           "Transform { scale 1 2 3 children", "}"},
          {"Group { children [ Shape { geometry Box { } } Shape { geometry Cone { } } ] }"},
          {"Switch { whichChild 1 Shape { geometry Box { } } Shape { geometry Cone { } } }"},
          {"LOD { range [ 10 ] level [ Shape { geometry Box { } } Shape { geometry Cone { } } ] }"},
          {"Collision { proxy Shape { geometry Box { } } children [ Shape { geometry Cone { } } ] }"},
          {"PointLight { on TRUE }", "", "Shape { geometry Box { } }"},
          {"Viewpoint { position 0 0 9 }", "", "Shape { geometry Box { } }"},
      });
}

}  // namespace
