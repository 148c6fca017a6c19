#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>

#include "qelvrml/platform/brixex/textures/ImageFile.h"
#include "support/Model.h"
#include "support/Tool.h"

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::FloatNear;
using testing::HasSubstr;

template <class Number>
Number ReadAt(const std::string& bytes, std::size_t place) {
  Number number{};
  std::memcpy(&number, bytes.data() + place, sizeof number);
  return number;
}

/// A .glb file, taken apart.
class Glb {
public:
  explicit Glb(const std::string& file) {
    EXPECT_EQ(file.substr(0, 4), "glTF");
    EXPECT_EQ(ReadAt<std::uint32_t>(file, 8), file.size());
    const auto textSize = ReadAt<std::uint32_t>(file, 12);
    Text = json::parse(file.substr(20, textSize));
    Buffer = file.substr(28 + textSize);
  }

  // The numbers of an accessor.
  template <class Number>
  std::vector<Number> Numbers(std::size_t accessor) const {
    const json& a = Text["accessors"][accessor];
    const json& view = Text["bufferViews"][a["bufferView"].get<std::size_t>()];
    const std::size_t start = view["byteOffset"].get<std::size_t>() + a["byteOffset"].get<std::size_t>();
    const std::size_t parts = a["type"] == "SCALAR" ? 1 : a["type"] == "VEC2" ? 2 : 3;
    std::vector<Number> numbers;
    for (std::size_t i = 0; i < parts * a["count"].get<std::size_t>(); ++i) {
      numbers.push_back(ReadAt<Number>(Buffer, start + i * sizeof(Number)));
    }
    return numbers;
  }
  // Of the only primitive of a mesh.
  const json& Primitive(std::size_t mesh) const { return Text["meshes"][mesh]["primitives"][0]; }
  std::vector<float> Attribute(std::size_t mesh, const char* name) const {
    return Numbers<float>(Primitive(mesh)["attributes"][name].get<std::size_t>());
  }
  const json& Material(std::size_t mesh) const {
    return Text["materials"][Primitive(mesh)["material"].get<std::size_t>()];
  }
  std::vector<float> Colour(std::size_t mesh) const {
    return Material(mesh)["pbrMetallicRoughness"]["baseColorFactor"].get<std::vector<float>>();
  }

  json Text;
  std::string Buffer;
};

Glb Convert(const TemporaryFolder& folder, const std::string& scene) {
  const std::string path = folder.Write("s.wrl", scene);
  const std::string target = (folder.Path() / "s.glb").string();
  const ToolOutput output = RunTool("convert " + path + " " + target);
  EXPECT_EQ(output.Status, 0) << output.Error;
  return Glb(ReadWholeFile(target));
}

double Dot(const float* a, const float* b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

// A box along each axis, in a group each, with a colour each, so small that the model counts in centimetres.
const std::string Axes = R"(#VRML V2.0 utf8
  DEF east Transform { translation 0.3 0 0 children DEF red Shape { geometry Box { size 0.1 0.1 0.1 }
    appearance Appearance { material Material { diffuseColor 1 0 0 shininess 0.25 } } } }
  DEF above Transform { translation 0 0.3 0 scale -1 1 1 children Shape { geometry Box { size 0.1 0.1 0.1 }
    appearance Appearance { material Material { diffuseColor 0 0.5 0 transparency 0.25 } } } }
  DEF near Transform { translation 0 0 0.3 children DEF in Group { children Shape { geometry Box { size 0.1 0.1 0.1 }
    appearance Appearance { material Material { diffuseColor 0 0 1 emissiveColor 0 1 0 } } } } })";

TEST(Convert, KeepsPlacesColoursAndNames) {
  const TemporaryFolder folder;
  const Glb glb = Convert(folder, Axes);
  // Metres: from 0.25 to 0.35 along the box's own axis, from -0.05 to 0.05 along the others.
  for (std::size_t mesh = 0; mesh < 3; ++mesh) {
    const json& bounds = glb.Text["accessors"][glb.Primitive(mesh)["attributes"]["POSITION"].get<std::size_t>()];
    for (std::size_t axis = 0; axis < 3; ++axis) {
      EXPECT_NEAR(bounds["min"][axis].get<double>(), axis == mesh ? 0.25 : -0.05, 1e-6);
      EXPECT_NEAR(bounds["max"][axis].get<double>(), axis == mesh ? 0.35 : 0.05, 1e-6);
    }
  }
  EXPECT_THAT(glb.Colour(0), ElementsAre(1, 0, 0, 1));
  EXPECT_THAT(glb.Colour(1), ElementsAre(0, FloatNear(0.2140F, 1e-4F), 0, 0.75F)) << "linear: (0.555 / 1.055) ^ 2.4";
  EXPECT_THAT(glb.Colour(2), ElementsAre(0, 0, 1, 1));
  EXPECT_EQ(glb.Material(2)["emissiveFactor"], json({0, 1, 0}));
  EXPECT_FALSE(glb.Material(0).contains("alphaMode"));
  EXPECT_EQ(glb.Material(1)["alphaMode"], "BLEND");
  EXPECT_NEAR(glb.Material(0)["pbrMetallicRoughness"]["roughnessFactor"].get<double>(), 0.4925, 1e-4)
      << "(2 / (0.25 * 128 + 2)) ^ (1 / 4)";

  const json& nodes = glb.Text["nodes"];
  std::vector<std::string> names;
  for (const json& top : glb.Text["scenes"][0]["nodes"]) names.push_back(nodes[top.get<std::size_t>()]["name"]);
  EXPECT_THAT(names, ElementsAre("east", "above", "near"));
  const json& near = nodes[glb.Text["scenes"][0]["nodes"][2].get<std::size_t>()];
  EXPECT_EQ(nodes[near["children"][0].get<std::size_t>()]["name"], "in");
}

// Of each box, the one in the mirror included: normals of length 1 that lead away from its centre, and triangles that
// run counter-clockwise about them.
TEST(Convert, FacesOutward) {
  const TemporaryFolder folder;
  const Glb glb = Convert(folder, Axes);
  for (std::size_t mesh = 0; mesh < 3; ++mesh) {
    const std::vector<float> points = glb.Attribute(mesh, "POSITION");
    const std::vector<float> normals = glb.Attribute(mesh, "NORMAL");
    const auto indices = glb.Numbers<std::uint16_t>(glb.Primitive(mesh)["indices"].get<std::size_t>());
    ASSERT_EQ(indices.size(), 36);
    for (std::size_t i = 0; i < 36; i += 3) {
      const float* p[3];
      for (std::size_t k = 0; k < 3; ++k) p[k] = &points[3 * std::size_t{indices[i + k]}];
      const float* normal = &normals[3 * std::size_t{indices[i]}];
      EXPECT_NEAR(Dot(normal, normal), 1.0, 1e-5);
      float out[3];
      float u[3];
      float v[3];
      for (std::size_t axis = 0; axis < 3; ++axis) {
        out[axis] = p[0][axis] - (axis == mesh ? 0.3F : 0.0F);
        u[axis] = p[1][axis] - p[0][axis];
        v[axis] = p[2][axis] - p[0][axis];
      }
      const float turn[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
      EXPECT_GT(Dot(normal, out), 0.0);
      EXPECT_GT(Dot(normal, turn), 0.0);
    }
  }
}

// The image as a file has red, green over blue, white; so has the one that the scene gives, from the bottom up.
TEST(Convert, KeepsTexturesTheRightWayUp) {
  const TemporaryFolder folder;
  const std::string square = R"(geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0, 0 1 0 ] }
    texCoord TextureCoordinate { point [ 0 0, 2 0, 2 1, 0 1 ] } coordIndex [ 0 1 2 3 -1 ] } })";
  const Glb pixels = Convert(folder, R"(#VRML V2.0 utf8
    Shape { appearance Appearance { texture PixelTexture {
      repeatT FALSE image 2 2 3 0x0000FF 0xFFFFFF 0xFF0000 0x00FF00 } } )" +
                                         square);
  EXPECT_THAT(pixels.Attribute(0, "TEXCOORD_0"), ElementsAre(0, 1, 2, 1, 2, 0, 0, 0)) << "t from the top down";
  const json& texture =
      pixels
          .Text["textures"][pixels.Material(0)["pbrMetallicRoughness"]["baseColorTexture"]["index"].get<std::size_t>()];
  const json& sampler = pixels.Text["samplers"][texture["sampler"].get<std::size_t>()];
  EXPECT_EQ(sampler["wrapS"], 10497) << "repeat";
  EXPECT_EQ(sampler["wrapT"], 33071) << "clamp to edge";
  EXPECT_FALSE(pixels.Material(0).contains("alphaMode")) << "opaque";
  const json& view = pixels.Text["bufferViews"][pixels.Text["images"][0]["bufferView"].get<std::size_t>()];
  const std::string png = pixels.Buffer.substr(view["byteOffset"].get<std::size_t>(), view["byteLength"]);
  folder.Write("tile.png", png);
  std::filesystem::remove(folder.Path() / "s.glb");

  // The file that was written is read back as the image of another scene, and handed on beside a .gltf file.
  const std::string scene = folder.Write("t.wrl", R"(#VRML V2.0 utf8
    Shape { appearance Appearance { texture ImageTexture { url "tile.png" } } )" +
                                                      square);
  const std::string again = (folder.Path() / "t.gltf").string();
  ASSERT_EQ(RunTool("convert " + scene + " " + again).Status, 0);
  EXPECT_EQ(json::parse(ReadWholeFile(again))["images"][0]["uri"], "t.gltf-1.png");
  const std::string obj = (folder.Path() / "t").string();
  ASSERT_EQ(RunTool("convert " + scene + " " + obj + ".obj").Status, 0);
  EXPECT_THAT(ReadWholeFile(obj + ".obj"), HasSubstr("\nvt 2 0 0\n"));
  EXPECT_THAT(ReadWholeFile(obj + ".mtl"), HasSubstr("map_Kd t.obj-1.png"));
  for (const std::string& file : {png, ReadWholeFile(again + "-1.png"), ReadWholeFile(obj + ".obj-1.png")}) {
    const qelvrml::Image image = qelvrml::DecodeImage(file, 4, [](std::uint64_t /*pixels*/) { return true; });
    ASSERT_EQ(image.Width * image.Height, 4);
    std::vector<int> bytes;
    for (int i = 0; i < 4; ++i) {
      const SKelTexturePixel& pixel = image.Pixels[static_cast<std::size_t>(i)];
      bytes.insert(bytes.end(), {pixel.Red, pixel.Green, pixel.Blue, pixel.Alpha});
    }
    EXPECT_THAT(bytes, ElementsAre(255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255));
  }
}

// The transformation turns (s, t) to (-t, s) and scales that to (-2 t, 4 s); glTF counts the second from the top.
TEST(Convert, FindsTheTextureCoordinateOfEachCorner) {
  const TemporaryFolder folder;
  const Glb glb = Convert(folder, R"(#VRML V2.0 utf8
    Shape { appearance Appearance { texture PixelTexture { image 1 1 3 0xFF0000 }
                                    textureTransform TextureTransform { scale 2 4 rotation 1.5707963 } }
      geometry IndexedFaceSet { coord DEF c Coordinate { point [ 0 0 0, 1 0 0, 1 1 0, 0 1 0 ] }
        texCoord TextureCoordinate { point [ 0 0, 0.5 0, 0.5 0.25, 0.125 0.125, 0.25 0.25, 0 0.25 ] }
        coordIndex [ 0 1 2 -1 0 2 3 -1 ] } }
    Shape { appearance Appearance { texture PixelTexture { image 1 1 3 0xFF0000 }
                                    textureTransform TextureTransform { scale 2 4 rotation 1.5707963 } }
      geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0 ] }
        texCoord TextureCoordinate { point [ 0 0, 0.5 0, 0.5 0.25 ] } coordIndex [ 2 1 0 -1 ] } }
    Shape { appearance Appearance { texture PixelTexture { image 1 1 3 0xFF0000 } }
      geometry IndexedFaceSet { coord Coordinate { point [ 1 0 8, 1 0 0, 1 2 0 ] }
        texCoord TextureCoordinate { point [ 9 9 ] } coordIndex [ 0 1 2 -1 ] } })");
  const auto are = [](const std::vector<float>& expected) { return testing::Pointwise(FloatNear(1e-5F), expected); };
  EXPECT_THAT(glb.Attribute(0, "TEXCOORD_0"), are({0, 1, 0, -1, -0.5F, -1, -0.25F, 0.5F, -0.5F, 0, -0.5F, 1}))
      << "as many as there are corners: one for each";
  EXPECT_THAT(glb.Attribute(1, "TEXCOORD_0"), are({-0.5F, -1, 0, -1, 0, 1})) << "one for each point";
  EXPECT_THAT(glb.Attribute(2, "TEXCOORD_0"), are({1, 1, 0, 1, 0, 0.75F})) << "else z / 8 and y / 8";
}

// Faces on points that are beyond the range of numbers go, those without area stay.
TEST(Convert, WritesNoBadNumbers) {
  const TemporaryFolder folder;
  const Glb glb = Convert(folder, R"(#VRML V2.0 utf8
    Shape { geometry IndexedFaceSet { coord DEF c Coordinate { point [ 0 0 0, 1e39 0 0, 0 1 0, 1 0 0, 2 0 0 ] }
      coordIndex [ 0 1 2 -1 0 3 4 -1 0 3 2 -1 ] } }
    Shape { geometry PointSet { coord USE c } })");
  EXPECT_EQ(glb.Text["accessors"][glb.Primitive(0)["indices"].get<std::size_t>()]["count"], 6);
  EXPECT_EQ(glb.Attribute(1, "POSITION").size(), 3 * 4);
  for (std::size_t mesh = 0; mesh < 2; ++mesh) {
    for (const float number : glb.Attribute(mesh, "POSITION")) EXPECT_TRUE(std::isfinite(number));
  }
  const std::vector<float> normals = glb.Attribute(0, "NORMAL");
  for (std::size_t i = 0; i < normals.size(); i += 3) EXPECT_NEAR(Dot(&normals[i], &normals[i]), 1.0, 1e-5);
}

TEST(Convert, KeepsLinesAndDots) {
  const TemporaryFolder folder;
  const std::string scene = R"(#VRML V2.0 utf8
    Shape { appearance DEF a Appearance { material Material { diffuseColor 0 0 1 emissiveColor 1 0 0 } }
      geometry IndexedLineSet { coord DEF c Coordinate { point [ 0 0 0, 30 0 0, 0 40 0 ] } coordIndex [ 0 1 2 -1 2 0 ] } }
    Shape { appearance USE a geometry PointSet { coord USE c } }
    Shape { appearance Appearance { material Material { emissiveColor 0 1 0 } } geometry PointSet { coord USE c } })";
  const Glb glb = Convert(folder, scene);
  EXPECT_EQ(glb.Primitive(0)["mode"], 1);
  EXPECT_THAT(glb.Attribute(0, "POSITION"), ElementsAre(0, 0, 0, 30, 0, 0, 0, 40, 0, 0, 40, 0, 0, 0, 0));
  EXPECT_THAT(glb.Numbers<std::uint16_t>(glb.Primitive(0)["indices"].get<std::size_t>()),
              ElementsAre(0, 1, 1, 2, 3, 4));
  EXPECT_EQ(glb.Primitive(1)["mode"], 0);
  EXPECT_EQ(glb.Attribute(1, "POSITION").size(), 9) << "one mesh for all dots of a node";
  EXPECT_THAT(glb.Colour(0), ElementsAre(1, 0, 0, 1));
  EXPECT_THAT(glb.Colour(2), ElementsAre(0, 1, 0, 1)) << "dots of another colour are another mesh";

  const std::string path = (folder.Path() / "s").string();
  ASSERT_EQ(RunTool("convert " + path + ".wrl " + path + ".obj").Status, 0);
  EXPECT_THAT(ReadWholeFile(path + ".obj"), AllOf(HasSubstr("\nl  1 2\n"), HasSubstr("\np  1\n")));
  const ToolOutput ply = RunTool("convert " + path + ".wrl " + path + ".ply");
  EXPECT_THAT(ply.Out, HasSubstr("6 objects, 0 triangles; ")) << "dots without the lines";
  EXPECT_THAT(ply.Out, HasSubstr("; 2 objects of lines or dots left out\n"));
  EXPECT_THAT(ReadWholeFile(path + ".ply"), AllOf(HasSubstr("element vertex 6\n"), HasSubstr("element face 0\n")));
  const ToolOutput stl = RunTool("convert " + path + ".wrl " + path + ".stl");
  EXPECT_EQ(stl.Error, "qelvrml: " + path + ".wrl: nothing in it but lines or dots, which .stl files don't hold\n");
  EXPECT_EQ(stl.Status, 1);
  EXPECT_FALSE(std::filesystem::exists(path + ".stl"));
}

// The signed volume of three cubes of 10 cm: 3,000 cm3, above zero only if they face outward.
TEST(Convert, WritesFormatsForPrintersInTheUnitFound) {
  const TemporaryFolder folder;
  const std::string path = (folder.Path() / "axes").string();
  folder.Write("axes.wrl", Axes);
  ASSERT_EQ(RunTool("convert " + path + ".wrl " + path + ".stl").Status, 0);
  const std::string stl = ReadWholeFile(path + ".stl");
  ASSERT_EQ(ReadAt<std::uint32_t>(stl, 80), 36);
  double volume = 0.0;
  for (std::size_t i = 0; i < 36; ++i) {
    float p[9];
    std::memcpy(p, stl.data() + 84 + 50 * i + 12, sizeof p);
    volume +=
        (p[0] * (p[4] * p[8] - p[5] * p[7]) + p[1] * (p[5] * p[6] - p[3] * p[8]) + p[2] * (p[3] * p[7] - p[4] * p[6])) /
        6.0;
  }
  EXPECT_NEAR(volume, 3000.0, 0.01);

  ASSERT_EQ(RunTool("convert " + path + ".wrl " + path + ".obj").Status, 0);
  EXPECT_THAT(ReadWholeFile(path + ".obj"), AllOf(HasSubstr("mtllib axes.mtl"), HasSubstr("\nv 25 -5 -5\n")));
  EXPECT_THAT(ReadWholeFile(path + ".mtl"), AllOf(HasSubstr("\nKd 0 0.5 0\n"), HasSubstr("\nd 0.75\n")));

  ASSERT_EQ(RunTool("convert " + path + ".wrl " + path + ".ply").Status, 0);
  EXPECT_THAT(ReadWholeFile(path + ".ply"), HasSubstr("end_header\n25 -5 -5 0 0 -1 255 0 0 255\n"))
      << "a point of the red box, its normal and its colour";
}

TEST(Convert, LeavesFilesAloneUnlessForced) {
  const TemporaryFolder folder;
  const std::string scene = folder.Write("s.wrl", Axes) + " ";
  const std::string target = folder.Write("s.glb", "mine");
  const auto count = [&] { return std::distance(std::filesystem::directory_iterator(folder.Path()), {}); };
  const ToolOutput kept = RunTool("convert " + scene + target);
  EXPECT_EQ(kept.Status, 73);
  EXPECT_THAT(kept.Error, HasSubstr("can't write " + target + ": it's there already; --force replaces it\n"));
  EXPECT_EQ(ReadWholeFile(target), "mine");
  folder.Write("t.bin", "mine");
  EXPECT_EQ(RunTool("convert " + scene + (folder.Path() / "t.gltf").string()).Status, 73) << "a file beside it";
  EXPECT_EQ(RunTool("convert " + scene + "/nowhere/s.glb").Status, 73);
  EXPECT_EQ(RunTool("convert " + scene + (folder.Path() / "t.foo").string()).Status, 64);
  EXPECT_EQ(RunTool("convert " + scene + (folder.Path() / "t.glb").string(), "ulimit -f 1; trap '' XFSZ; ").Status, 73)
      << "no room";
  EXPECT_EQ(count(), 3) << "the scene and what was there";
  EXPECT_EQ(RunTool("convert --force " + scene + target).Status, 0);
  EXPECT_EQ(ReadWholeFile(target).substr(0, 4), "glTF");
  EXPECT_EQ(RunShell("stat -c %A " + target + " | cut -c 8").Out, "r\n") << "others may read it";
  EXPECT_EQ(RunTool("convert --force " + scene + target, "umask 077; ").Status, 0);
  EXPECT_EQ(RunShell("stat -c %A " + target).Out, "-rw-------\n") << "unless they may read nothing";
  EXPECT_EQ(count(), 3);
}

// Scenes keep the folders that they stand in, one of two that would get the same name its ending, and one that gives
// nothing to see tells why.
TEST(Convert, WritesManyFiles) {
  const TemporaryFolder folder;
  folder.Write("in/a/lamp.wrl", Axes);
  folder.Write("in/a/lamp.WRZ", Axes);
  folder.Write("in/b #1.wrl", Axes);
  folder.Write("in/empty.wrl", "#VRML V2.0 utf8\nShape { geometry Text { string \"x\" } }\nShape {}");
  const std::filesystem::path out = folder.Path() / "new" / "out";
  const ToolOutput output = RunTool("convert " + (folder.Path() / "in").string() + " --to gltf --into " + out.string());
  EXPECT_EQ(output.Status, 1);
  EXPECT_THAT(output.Out, testing::MatchesRegex("total: 4 files, 3 converted, 1 failed; [0-9.]+ m?s\n"));
  EXPECT_THAT(output.Error, HasSubstr("empty.wrl: nothing to show: Text: "));
  const json text = json::parse(ReadWholeFile((out / "b #1.gltf").string()));
  EXPECT_EQ(text["buffers"][0]["uri"], "b%20%231.bin");
  EXPECT_EQ(std::filesystem::file_size(out / "b #1.bin"), text["buffers"][0]["byteLength"]);
  EXPECT_TRUE(std::filesystem::exists(out / "a" / "lamp.gltf"));
  EXPECT_TRUE(std::filesystem::exists(out / "a" / "lamp.wrl.gltf")) << "behind lamp.WRZ in the order of names";
}

}  // namespace
