#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <numbers>
#include <regex>
#include <sstream>

#include "support/Model.h"
#include "support/Tool.h"

namespace {

using nlohmann::json;
using std::numbers::pi;

ToolOutput RunMeasure(const std::string& scene, const std::string& options = "") {
  const TemporaryFolder folder;
  const std::string header = scene.starts_with("#") ? "" : "#VRML V1.0 ascii\n";
  return RunTool("measure " + folder.Write("s.wrl", header + scene) + options);
}

/// Measures of a scene. Lengths of 25 and more stay in metres.
json Measured(const std::string& scene) {
  const ToolOutput output = RunMeasure(scene, " --json");
  EXPECT_EQ(output.Status, 0) << output.Error;
  return json::parse(output.Out)["scene"];
}

void ExpectNear(const json& actual, double expected, const std::string& what) {
  ASSERT_TRUE(actual.is_number()) << what << actual;
  EXPECT_NEAR(actual.get<double>(), expected, 1e-3 * expected) << what;
}

struct Solid {
  std::string Scene;
  double Area;
  double Volume;
};

// Of an ellipsoid with the half axes a, a, c.
double SpheroidArea(double a, double c) {
  const double e = std::sqrt(1.0 - std::pow(std::min(a, c) / std::max(a, c), 2));
  return 2.0 * pi * a * a * (c > a ? 1.0 + c / a / e * std::asin(e) : 1.0 + (1.0 - e * e) / e * std::atanh(e));
}

TEST(Measure, AgreesWithFormulas) {
  const double slant = std::hypot(30.0, 40.0);
  for (const auto& [scene, area, volume] : {
           Solid{"Cube { width 30 height 40 depth 50 }", 2.0 * (1200 + 1500 + 2000), 60000},
           Solid{"Sphere { radius 30 }", 4 * pi * 900, 4 * pi * 9000},
           Solid{"Rotation { rotation 1 2 3 1 } Scale { scaleFactor 1 4 1 } Sphere { radius 20 }", SpheroidArea(20, 80),
                 4.0 / 3.0 * pi * 20 * 20 * 80},
           Solid{"Scale { scaleFactor -5 1 5 } Translation { translation 9 8 7 } Sphere { radius 10 }",
                 SpheroidArea(50, 10), 4.0 / 3.0 * pi * 50 * 50 * 10},
           Solid{"Rotation { rotation 3 1 2 2 } Cylinder { radius 30 height 40 }", 2 * pi * 30 * 70, pi * 900 * 40},
           Solid{"Scale { scaleFactor 3 -2 3 } Cylinder { radius 10 height 20 }", 2 * pi * 30 * 70, pi * 900 * 40},
           Solid{"Rotation { rotation 3 1 2 2 } Cone { bottomRadius 30 height 40 }", pi * 30 * (30 + slant),
                 pi * 900 * 40 / 3},
           Solid{"Scale { scaleFactor -3 4 3 } Cone { bottomRadius 10 height 10 }", pi * 30 * (30 + slant),
                 pi * 900 * 40 / 3},
       }) {
    const json sum = Measured(scene);
    EXPECT_EQ(sum["closed"], true) << scene;
    EXPECT_EQ(sum["bodies"], 1) << scene;
    EXPECT_EQ(sum["openEdges"], 0) << scene;
    ExpectNear(sum["area"], area, scene);
    ExpectNear(sum["volume"], volume, scene);
  }
  // The bottom of a cone whose sides follow an ellipse does so too.
  ExpectNear(Measured("Scale { scaleFactor 2 1 1 } Cone { bottomRadius 20 height 30 }")["volume"],
             pi * 40 * 20 * 30 / 3, "elliptic cone");
}

TEST(Measure, CountsInTheUnitThatWasFound) {
  const ToolOutput output =
      RunMeasure("Translation { translation 0.01 0 0 } Cube { width 0.1 height 0.05 depth 0.02 }", " --json");
  const json all = json::parse(output.Out);
  EXPECT_EQ(all["units"], "millimeters");
  EXPECT_EQ(all["scene"]["box"],
            json::parse(R"({"min": [-40.0, -25.0, -10.0], "max": [60.0, 25.0, 10.0], "size": [100.0, 50.0, 20.0]})"));
  ExpectNear(all["scene"]["area"], 2.0 * (100 * 50 + 100 * 20 + 50 * 20), "area");
  ExpectNear(all["scene"]["volume"], 100.0 * 50 * 20, "volume");
}

std::string FaceSet(const std::string& points, const std::string& faces) {
  return "Coordinate3 { point [ " + points + " ] } IndexedFaceSet { coordIndex [ " + faces + " ] }\n";
}

/// Corners of a cube about the origin, the lower four and above them the upper ones.
std::string CubePoints(double half) {
  std::ostringstream text;
  for (const double y : {-half, half}) {
    text << -half << ' ' << y << ' ' << -half << ", " << -half << ' ' << y << ' ' << half << ", " << half << ' ' << y
         << ' ' << half << ", " << half << ' ' << y << ' ' << -half << ", ";
  }
  return text.str();
}

const std::string Bottom = "0 3 2 1 -1 ";
const std::string Top = "4 5 6 7 -1 ";
const std::string Sides = "0 1 5 4 -1 1 2 6 5 -1 2 3 7 6 -1 3 0 4 7 -1 ";
const std::string TurnedTop = "7 6 5 4 -1 ";

struct Faces {
  const char* What;
  std::string Scene;
  json Expected;
};

TEST(Measure, TellsClosedSurfacesFromOpenOnes) {
  const std::string cube = CubePoints(15);  // 30 wide: 27,000 in all
  const Faces cases[] = {
      {"whole", FaceSet(cube, Bottom + Top + Sides), {{"volume", 27000}, {"nonManifoldEdges", 0}}},
      {"no top",
       FaceSet(cube, Bottom + Sides),
       {{"volume", nullptr}, {"bodies", 0}, {"openSurfaces", 1}, {"openEdges", 4}, {"area", 5 * 900}}},
      {"a top that faces inward", FaceSet(cube, Bottom + TurnedTop + Sides), {{"volume", 27000}, {"bodies", 1}}},
      {"all inward",
       FaceSet(cube, "1 2 3 0 -1 7 6 5 4 -1 4 5 1 0 -1 5 6 2 1 -1 6 7 3 2 -1 7 4 0 3 -1"),
       {{"volume", 27000}}},
      {"a face that stands there twice",
       FaceSet(cube, Bottom + Top + Top + Sides),
       {{"volume", 27000}, {"area", 7 * 900}, {"faces", 7}}},
      // The smaller cube, 10 wide, faces into its inside: 27,000 - 1,000.
      {"a cavity",
       FaceSet(cube + CubePoints(5), Bottom + Top + Sides +
                                         "9 10 11 8 -1 15 14 13 12 -1 12 13 9 8 -1 13 14 10 9 -1 14 15 11 10 -1 15 12 "
                                         "8 11 -1"),
       {{"volume", 26000}, {"bodies", 1}}},
      // Pages of 30 x 30 about one edge: 3 more edges each.
      {"a book",
       FaceSet("0 0 0, 0 30 0, 30 0 0, 30 30 0, 0 0 30, 0 30 30, -30 0 0, -30 30 0",
               "0 2 3 1 -1 0 4 5 1 -1 0 6 7 1 -1"),
       {{"openSurfaces", 1}, {"openEdges", 9}, {"nonManifoldEdges", 1}, {"closed", false}}},
      // Five triangles, each with two points of the one before; the last one has them the other way round.
      {"a Moebius strip",
       FaceSet("0 0 0, 30 0 9, 20 30 0, -20 30 5, -30 0 0", "0 1 2 -1 1 2 3 -1 2 3 4 -1 3 4 0 -1 4 0 1 -1"),
       {{"closed", false}, {"openSurfaces", 1}, {"openEdges", 5}}},
      // Ten triangles over six points, in which each point meets each other one: the projective plane.
      {"no inside",
       FaceSet("0 0 0, 30 0 0, 0 30 0, 0 0 30, 30 30 5, 5 30 30",
               "0 1 2 -1 0 2 3 -1 0 3 4 -1 0 4 5 -1 0 5 1 -1 1 2 4 -1 2 3 5 -1 3 4 1 -1 4 5 2 -1 5 1 3 -1"),
       {{"closed", true}, {"volume", nullptr}, {"bodies", 1}, {"bodiesVolume", 0}, {"nonManifoldEdges", 0}}},
  };
  for (const auto& [what, scene, expected] : cases) {
    const json sum = Measured(scene)["objects"][0];
    for (const auto& [key, value] : expected.items()) {
      const std::string place = what + (" " + key);
      if (value.is_number()) {
        ExpectNear(sum[key], value.get<double>(), place);
      } else {
        EXPECT_EQ(sum[key], value) << place;
      }
    }
  }
}

// Single precision has seven digits. Points that differ in the eighth are one, those that differ in the fifth are two.
TEST(Measure, TakesPointsForOneThatOnlyRoundingParts) {
  const auto boxWithTopAt = [](const char* height) {
    const std::string top = std::string(", -1000 ") + height + " -15, -1000 " + height + " 15, 1000 " + height +
                            " 15, 1000 " + height + " -15";
    return FaceSet(
        "-1000 -15 -15, -1000 -15 15, 1000 -15 15, 1000 -15 -15, -1000 15 -15, -1000 15 15, 1000 15 15, 1000 15 -15" +
            top,
        Bottom + Sides + "8 9 10 11 -1");
  };
  ExpectNear(Measured(boxWithTopAt("15.00005"))["volume"], 2000.0 * 30 * 30, "rounded");
  EXPECT_EQ(Measured(boxWithTopAt("15.05"))["openEdges"], 8);
}

// What counts as one in the ground, of 20 km, is more than the whole pole at the origin.
TEST(Measure, KeepsSmallBodiesOfLargeScenes) {
  const std::string ground = "-10000 0 -10000, 10000 0 -10000, 10000 0 10000, -10000 0 10000";
  const json sum = Measured(FaceSet(ground, "3 2 1 0 -1") +
                            "Translation { translation 0 5 0 } Rotation { rotation 1 2 3 1 }"
                            "Cylinder { radius 0.004 height 0.01 }"
                            "Translation { translation 5000 9 0 } Cylinder { }");
  EXPECT_EQ(sum["openSurfaces"], 1);
  EXPECT_EQ(sum["bodies"], 2);
  ExpectNear(sum["bodiesVolume"], pi * 2, "cylinder of the radius 1 and the height 2");

  // A box without a top that is as wide as what counts as one in other things so far away.
  const json box = Measured("Translation { translation 40000000 0 0 }" + FaceSet(CubePoints(16), Bottom + Sides));
  EXPECT_EQ(box["openEdges"], 4);
  ExpectNear(box["area"], 5 * 32 * 32, "far box");
}

TEST(Measure, PutsOpenObjectsOfAGroupTogether) {
  const std::string cube = "Coordinate3 { point [ " + CubePoints(15) + " ] }";
  const auto part = [](const std::string& faces) { return "IndexedFaceSet { coordIndex [ " + faces + " ] }"; };

  // The lower group gets the sides, the one around it the bottom, and only the scene the top.
  json sum =
      Measured(cube + "DEF a Separator { " + part(Bottom) + " DEF b Separator { " + part(Sides) + " } } " + part(Top));
  const json& outer = sum["groups"][0];
  EXPECT_EQ(outer["groups"][0]["openEdges"], 8);
  EXPECT_EQ(outer["openEdges"], 4);
  EXPECT_EQ(outer["openSurfaces"], 1);
  ExpectNear(sum["volume"], 27000, "scene");
  EXPECT_EQ(sum["bodies"], 1);

  // A stray face keeps a group open, and takes no body away.
  sum = Measured("DEF post Separator { Cylinder { radius 10 height 30 } Translation { translation 10 0 0 }" + cube +
                 part(Top) + " }");
  const json& post = sum["groups"][0];
  EXPECT_EQ(post["closed"], false);
  EXPECT_EQ(post["volume"], nullptr);
  EXPECT_EQ(post["openEdges"], 4);
  EXPECT_EQ(post["openSurfaces"], 1);
  ExpectNear(post["bodiesVolume"], pi * 100 * 30, "post");

  // Cylinders on top of each other share a rim: each is a body.
  sum =
      Measured("Cylinder { radius 10 height 30 } Translation { translation 0 30 0 } Cylinder { radius 10 height 30 }");
  EXPECT_EQ(sum["bodies"], 2);
  ExpectNear(sum["volume"], pi * 100 * 60, "pile");

  // Each face of a cube with colours is an object.
  sum = Measured("Material { diffuseColor [ 1 0 0, 0 1 0 ] } MaterialBinding { value PER_FACE }" + cube +
                 part(Bottom + TurnedTop + Sides));
  EXPECT_EQ(sum["objects"].size(), 6);
  ExpectNear(sum["volume"], 27000, "coloured");

  // The other half of the cube is a mirror image, and so it faces inward.
  sum = Measured(cube + part("0 1 5 4 -1 1 2 6 5 -1 " + Bottom) + "Separator { Scale { scaleFactor -1 -1 -1 } " +
                 part("0 1 5 4 -1 1 2 6 5 -1 " + Bottom) + " }");
  ExpectNear(sum["volume"], 27000, "mirrored half");
}

TEST(Measure, TellsLinesFromNothing) {
  const json lines =
      Measured("Coordinate3 { point [ 0 0 0, 30 0 0 ] } IndexedLineSet { coordIndex [ 0 1 -1 ] } PointSet { }");
  EXPECT_EQ(lines["area"], 0.0);
  EXPECT_EQ(lines["volume"], nullptr);
  EXPECT_EQ(lines["closed"], false);
  EXPECT_EQ(lines["points"], 4);

  const std::string empty = "#VRML V2.0 utf8\nText { string \"a\" } Group { }";
  ToolOutput output = RunMeasure(empty);
  EXPECT_EQ(output.Status, 1);
  EXPECT_EQ(output.Out, "");
  EXPECT_THAT(output.Error, testing::HasSubstr("s.wrl: nothing to show: Text: passed over"));
  output = RunMeasure(empty, " --json");
  EXPECT_EQ(output.Status, 1);
  EXPECT_EQ(json::parse(output.Out)["scene"]["box"], nullptr);
  EXPECT_EQ(RunTool("measure /nowhere.wrl").Status, 2);
}

// A cylinder of pi * 25^2 * 60 = 117,810 has a side of pi * 50 * 60 = 9,425 and two disks of pi * 25^2 = 1,963.5. A
// step of the default tolerance takes up 0.283 of a circle of 2 pi: there are 23 steps, with 46 triangles at the side
// and 23 in each disk.
TEST(Measure, ShowsATableToPeople) {
  const ToolOutput output = RunMeasure(
      "DEF post Separator { Cylinder { radius 25 height 60 } DEF cap Cube { width 10 height 20 depth 30 } }"
      "Text2 { } Coordinate3 { point [ 0 0 0, 10 0 0, 0 10 0 ] } IndexedFaceSet { coordIndex [ 0 1 2 -1 ] }"
      "IndexedLineSet { coordIndex [ 0 1 -1 1 2 -1 ] }");
  const std::string text = std::regex_replace(output.Out, std::regex("  +"), "  ");
  EXPECT_EQ(text.substr(text.find("units")),
            "units  meters (numbers read as metres)\n"
            "from  -25, -30, -25\n"
            "to  25, 30, 25\n"
            "points  109\n"  // 46 + 2 * 24 + 8 + 3 + 2 * 2
            "faces  99\n"    // 46 + 2 * 23 + 6 + 1
            "notes  1, which info tells: something may be missing\n"
            "  size  area  surfaces\n"
            "scene  50 x 60 x 50 m  15,602 m2  2 closed surfaces, 123,810 m3; 1 open surface, 3 open edges\n"
            "  CKelPolyface  10 x 10 x 0 m  50 m2  open, 3 open edges\n"
            "  2 x CKelPolyline  10 x 10 x 0 m  no surface\n"
            "  post  50 x 60 x 50 m  15,552 m2  2 closed surfaces, 123,810 m3\n"
            "  brixCylinder  50 x 60 x 50 m  9,425 m2  open, 2 open edges\n"
            "  2 x brixDisk  50 x 60 x 50 m  3,927 m2  open, each by itself, 2 open edges\n"
            "  cap (brixBox)  10 x 20 x 30 m  2,200 m2  closed, 6,000 m3\n");
}

}  // namespace
