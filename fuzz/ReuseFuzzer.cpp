// Writes a scene with a node twice, and the same scene with a DEF and a USE of that node: the objects are the same.
//
// The scene comes from a grammar, which the bytes lead through, and from nodes whose names can be used: a name of an
// indexed set, a colour or an appearance by itself leads to nothing. A set has its own coordinates and begins with a
// face: one that adds nothing at its DEF is not recorded, but may add something under the binding at its USE, and the
// range of a set of points is recorded as it was cut there.
// Names of objects and groups differ, and so may the order in which groups hold the objects.

#include <array>

#include "Support.h"

namespace {

constexpr int MostNesting = 4;

constexpr std::array<const char*, 10> Numbers = {"0", "1", "2", "-1", ".5", "3", "1e3", "-2.5", "0x10", "40"};

/// Writes the nodes of a scene of one version.
class Grammar {
public:
  Grammar(Choices& choices, bool version20) : Choice(choices), Version20(version20) {}

  /// A node that has an effect on those behind it, or an object.
  std::string Statement(int depth) { return Choice.Below(2) == 0 ? Property() : Node(depth); }
  /// A node whose name can be used.
  std::string Named() {
    switch (Choice.Below(3)) {
      case 0: return Version20 ? Scope(0) : Property();
      case 1: return Solid();
      default: return Scope(0);
    }
  }

private:
  std::string Numbers(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += std::string(Choice.Of(::Numbers)) + " ";
    return text;
  }
  std::string List(std::size_t each, const std::string& first = {}) {
    return "[ " + first + Numbers(each * (1 + Choice.Below(6))) + "] ";
  }
  std::string Sizes(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += std::to_string(1 + Choice.Below(9)) + " ";
    return text;
  }
  // Most of them name points.
  std::string Indices(const std::string& first = {}) {
    std::string text = "[ " + first;
    for (std::size_t i = Choice.Below(12); i > 0; --i) text += std::to_string(int(Choice.Below(7)) - 1) + " ";
    return text + "] ";
  }

  std::string Material() {
    static constexpr std::array<const char*, 4> Colours = {"diffuseColor ", "ambientColor ", "specularColor ",
                                                           "emissiveColor "};
    const std::string colour = Choice.Of(Colours);
    return "Material { " + colour + (Version20 ? Numbers(3) : List(3)) + "transparency " + Numbers(1) + "shininess " +
           Numbers(1) + "} ";
  }
  std::string Placing() {
    return "translation " + Numbers(3) + "rotation " + Numbers(4) + "scale " + Sizes(3) + "center " + Numbers(3) + " ";
  }
  std::string Coordinates(const std::string& first = {}) {
    return (Version20 ? "Coordinate { point " : "Coordinate3 { point ") + List(3, first) + "} ";
  }

  std::string Property() {
    switch (Choice.Below(9)) {
      case 0: return Material();
      case 1: return "Translation { translation " + Numbers(3) + "} ";
      case 2: return "Rotation { rotation " + Numbers(4) + "} ";
      case 3: return "Scale { scaleFactor " + Sizes(3) + "} ";
      case 4: return "MatrixTransform { matrix " + Numbers(16) + "} ";
      case 5: return Coordinates();
      case 6: return "MaterialBinding { value " + std::string(Choice.Of(Bindings)) + " } ";
      case 7: return "NormalBinding { value " + std::string(Choice.Of(Bindings)) + " } ";
      default: return Version20 ? Material() : "Transform { " + Placing() + "scaleFactor " + Sizes(3) + "} ";
    }
  }

  std::string Solid() {
    switch (Choice.Below(6)) {
      case 0: return Version20 ? "Box { size " + Sizes(3) + "} " : "Cube { width " + Numbers(1) + "} ";
      case 1: return "Sphere { radius " + Numbers(1) + "} ";
      case 2: return "Cone { bottomRadius " + Numbers(1) + "height " + Sizes(1) + "} ";
      case 3: return "Cylinder { radius " + Numbers(1) + "height " + Sizes(1) + "} ";
      case 4:
        return "ElevationGrid { xDimension " + Sizes(1) + "zDimension " + Sizes(1) + "xSpacing 1 zSpacing 2 height " +
               List(3) + (Choice.Below(2) == 0 ? "solid FALSE } " : "} ");
      default:
        return "Extrusion { crossSection " + List(2) + "spine " + List(3) + "scale " + List(2) + "orientation " +
               List(4) + "} ";
    }
  }

  std::string Set() {
    const std::string coordinates = Coordinates("0 0 0 1 0 0 0 1 0 ");
    const std::string before = Version20 ? "" : coordinates;
    const std::string coord = Version20 ? "coord " + coordinates : "";
    switch (Choice.Below(3)) {
      case 0:
        return before + "IndexedFaceSet { " + coord + "coordIndex " + Indices("0 1 2 -1 ") + "materialIndex " +
               Indices() + "} ";
      case 1:
        return before + "IndexedLineSet { " + coord + "coordIndex " + Indices("0 1 2 -1 ") + "materialIndex " +
               Indices() + "} ";
      default: return before + "PointSet { " + coord + "} ";
    }
  }

  std::string Node(int depth) {
    switch (Choice.Below(3)) {
      case 0: return Solid();
      case 1: return Set();
      default: return depth < MostNesting ? Scope(depth) : Solid();
    }
  }

  std::string Statements(int depth) {
    std::string text;
    for (std::size_t i = Choice.Below(4) + 1; i > 0; --i) text += Statement(depth + 1);
    return text;
  }

  std::string Scope(int depth) {
    if (!Version20) return "Separator { " + Statements(depth) + "} ";
    switch (Choice.Below(5)) {
      case 0: return "Group { children [ " + Statements(depth) + "] } ";
      case 1: return "Transform { " + Placing() + "children [ " + Statements(depth) + "] } ";
      case 2: return "Collision { children [ " + Statements(depth) + "] } ";
      case 3: return "LOD { level [ " + Scope(depth) + "] } ";
      default: {
        const std::string look = "appearance Appearance { material " + Material() + "} ";
        return "Shape { " + look + "geometry " + (Choice.Below(2) == 0 ? Set() : Solid()) + "} ";
      }
    }
  }

  static constexpr std::array<const char*, 5> Bindings = {"OVERALL", "PER_PART", "PER_FACE", "PER_FACE_INDEXED",
                                                          "PER_VERTEX_INDEXED"};
  Choices& Choice;
  bool Version20;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(data, size);
  const bool version20 = choices.Below(2) == 1;
  const std::string header = version20 ? "#VRML V2.0 utf8\n" : "#VRML V1.0 ascii\n";
  Grammar grammar(choices, version20);
  const std::string node = grammar.Named();
  const std::string before = grammar.Statement(0) + grammar.Statement(0);
  const std::string between = grammar.Statement(0);
  const std::string behind = grammar.Statement(0);

  const Scratch& scratch = Scratch::Get();
  const auto load = [&](const std::string& body) {
    CVRMLParser parser;
    ModelDigest digest = LoadAndDigest(parser, scratch.Write("scene.wrl", header + body));
    digest.Groups = 0;
    return digest;
  };
  const std::string twice = before + node + between + node + behind;
  const std::string reused = before + "DEF x " + node + between + "USE x " + behind;
  Require(load(twice) == load(reused), "a USE differs from its node:\n" + header + reused);
  return 0;
}
