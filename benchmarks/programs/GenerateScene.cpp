// Writes the scenes that whole loads are measured with:
//
//   generate-scene KIND COUNT FILE
//
// The same arguments give the same bytes on every machine.

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view Header10 = "#VRML V1.0 ascii\n";
constexpr std::string_view Header20 = "#VRML V2.0 utf8\n";

/// A text that grows by words and numbers; numbers come from a generator with a fixed seed.
class SceneText {
public:
  SceneText& operator<<(std::string_view text) {
    Text += text;
    return *this;
  }
  SceneText& operator<<(int value) {
    std::array<char, 16> digits{};
    Text.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
    return *this;
  }
  /// A random number with so many digits behind the point, and a blank.
  SceneText& Number(double low, double high, int decimals) {
    constexpr double Range = 4294967296.0;
    std::array<char, 32> digits{};
    const double value = low + (high - low) * (static_cast<double>(Random() & 0xFFFFFFFFU) / Range);
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
    Text.append(digits.data(), end.ptr);
    Text += ' ';
    return *this;
  }
  SceneText& Numbers(int count, double low, double high, int decimals) {
    for (int i = 0; i < count; ++i) Number(low, high, decimals);
    return *this;
  }
  const std::string& Get() const { return Text; }

private:
  std::string Text;
  std::mt19937_64 Random{20'261'125};
};

constexpr int MeshSide = 100;  // points along a side of a mesh

void AddPoints(SceneText& text, int count) {
  for (int i = 0; i < count; ++i) text.Numbers(3, -500.0, 500.0, 4) << "\n";
}

// Two triangles for each cell of a square of points.
void AddTriangles(SceneText& text, int side) {
  for (int row = 0; row + 1 < side; ++row) {
    for (int column = 0; column + 1 < side; ++column) {
      const int corner = row * side + column;
      text << corner << ", " << corner + 1 << ", " << corner + side + 1 << ", -1,\n";
      text << corner << ", " << corner + side + 1 << ", " << corner + side << ", -1,\n";
    }
  }
}

void AddMesh10(SceneText& text, int side) {
  text << "Separator {\nMaterial { diffuseColor ";
  text.Numbers(3, 0.0, 1.0, 3) << "}\nCoordinate3 { point [\n";
  AddPoints(text, side * side);
  text << "] }\nIndexedFaceSet { coordIndex [\n";
  AddTriangles(text, side);
  text << "] }\n}\n";
}

void AddMesh20(SceneText& text, int side) {
  text << "Shape {\nappearance Appearance { material Material { diffuseColor ";
  text.Numbers(3, 0.0, 1.0, 3) << "} }\ngeometry IndexedFaceSet {\ncoord Coordinate { point [\n";
  AddPoints(text, side * side);
  text << "] }\ncoordIndex [\n";
  AddTriangles(text, side);
  text << "] } }\n";
}

void AddMeshes10(SceneText& text, int count) {
  text << Header10;
  for (int i = 0; i < count; ++i) AddMesh10(text, MeshSide);
}

void AddMeshes20(SceneText& text, int count) {
  text << Header20;
  for (int i = 0; i < count; ++i) AddMesh20(text, MeshSide);
}

// A mesh of one part among many files.
void AddPart(SceneText& text, int side) {
  text << Header20;
  AddMesh20(text, side);
}

void AddGrid(SceneText& text, int side) {
  text << Header20 << "Shape { geometry ElevationGrid { xDimension " << side << " zDimension " << side;
  text << " xSpacing 0.5 zSpacing 0.5 height [\n";
  for (int row = 0; row < side; ++row) text.Numbers(side, 0.0, 900.0, 3) << "\n";
  text << "] } }\n";
}

// A placed and coloured solid; each kind in turn.
void AddShape(SceneText& text, int place) {
  text << "Transform { translation ";
  text.Numbers(3, -900.0, 900.0, 1) << "rotation 0 1 0 ";
  text.Number(0.0, 3.0, 2) << "children Shape {\n appearance Appearance { material Material { diffuseColor ";
  text.Numbers(3, 0.0, 1.0, 2) << "} }\n geometry ";
  switch (place % 4) {
    case 0: (text << "Box { size ").Numbers(3, 0.5, 9.0, 1); break;
    case 1: (text << "Sphere { radius ").Number(0.5, 9.0, 1); break;
    case 2: ((text << "Cylinder { radius ").Number(0.5, 9.0, 1) << "height ").Number(0.5, 9.0, 1); break;
    default: ((text << "Cone { bottomRadius ").Number(0.5, 9.0, 1) << "height ").Number(0.5, 9.0, 1); break;
  }
  text << "} } }\n";
}

void AddShapes(SceneText& text, int count) {
  text << Header20;
  for (int i = 0; i < count; ++i) AddShape(text, i);
}

void AddInstances(SceneText& text, int count) {
  text << Header20 << "PROTO Post [ field SFVec3f at 0 0 0 field SFVec3f size 1 1 1 field SFColor color 1 1 1 ] {\n"
       << " Transform { translation IS at children Shape {\n"
       << "  appearance Appearance { material Material { diffuseColor IS color } }\n  geometry Box { size IS size } } "
          "}\n}\n";
  for (int i = 0; i < count; ++i) {
    text << "Post { at ";
    text.Numbers(3, -900.0, 900.0, 1) << "size ";
    text.Numbers(3, 0.5, 9.0, 1) << "color ";
    text.Numbers(3, 0.0, 1.0, 1) << "}\n";
  }
}

void AddFlatInstances(SceneText& text, int count) {
  text << Header20;
  for (int i = 0; i < count; ++i) {
    text << "Transform { translation ";
    text.Numbers(3, -900.0, 900.0, 1)
        << "children Shape {\n  appearance Appearance { material Material { diffuseColor ";
    text.Numbers(3, 0.0, 1.0, 1) << "} }\n  geometry Box { size ";
    text.Numbers(3, 0.5, 9.0, 1) << "} } }\n";
  }
}

void AddUses(SceneText& text, int count) {
  text << Header20;
  for (int i = 0; i < count; ++i) {
    text << "DEF Part" << i << " ";
    AddShape(text, i);
    text << "USE Part" << i << "\n";
  }
}

// The same model without a name.
void AddFlatUses(SceneText& text, int count) {
  text << Header20;
  for (int i = 0; i < count; ++i) {
    AddShape(text, i);
    AddShape(text, i);
  }
}

void AddSeparators(SceneText& text, int count) {
  constexpr int PointCount = 100'000;
  text << Header10 << "Coordinate3 { point [\n";
  AddPoints(text, PointCount);
  text << "] }\n";
  for (int i = 0; i < count; ++i) {
    const int first = i % (PointCount - 2);
    text << "Separator { Translation { translation ";
    text.Numbers(3, -900.0, 900.0, 2) << "} IndexedFaceSet { coordIndex [ ";
    text << first << " " << first + 1 << " " << first + 2 << " -1 ] } }\n";
  }
}

struct Kind {
  std::string_view Name;
  void (*Add)(SceneText& text, int count);
};

constexpr auto Kinds = std::to_array<Kind>({
    {"meshes-1.0", AddMeshes10},
    {"meshes-2.0", AddMeshes20},
    {"part", AddPart},
    {"grid", AddGrid},
    {"shapes", AddShapes},
    {"instances", AddInstances},
    {"instances-flat", AddFlatInstances},
    {"uses", AddUses},
    {"uses-flat", AddFlatUses},
    {"separators", AddSeparators},
});

}  // namespace

int main(int argc, char** argv) {
  for (const Kind& kind : Kinds) {
    if (argc != 4 || kind.Name != argv[1]) continue;
    SceneText text;
    kind.Add(text, std::atoi(argv[2]));
    std::ofstream file(argv[3], std::ios::binary);
    if (file << text.Get() << std::flush) return 0;
    std::cerr << "generate-scene: can't write " << argv[3] << '\n';
    return 1;
  }
  std::cerr << "generate-scene KIND COUNT FILE, with KIND one of:\n";
  for (const Kind& kind : Kinds) std::cerr << "  " << kind.Name << '\n';
  return 64;
}
