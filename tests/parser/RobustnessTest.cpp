// Damage on purpose: rich scenes cut off and mixed up, and deep nesting on a small stack.

#include <gtest/gtest.h>
#include <pthread.h>

#include <random>

#include "support/Model.h"

namespace {

const std::string RichScene = R"(#VRML V2.0 utf8
  PROTO Ball [ eventIn SFBool b field SFFloat r 2 exposedField MFString s [ "a b", "c" ] field SFNode n Group { } ]
    { DEF inner Shape { appearance Appearance { material Material { diffuseColor 1 0 0 } } geometry Sphere { radius IS r } } }
  EXTERNPROTO Far [ field SFFloat x ] [ "far.wrl#Far" "other.wrl" ]
  DEF root Transform { scaleOrientation 0 0 1 1 translation 1 2 3 addChildren Box {} children [
    DEF b Ball { r 5 s [ "x" ] } Ball { } USE b
    Collision { proxy DEF p Shape { geometry Box {} } children [ LOD { range [ 1, 2 ] level [ Shape { geometry Cone { bottom FALSE } } ] } ] }
    Switch { whichChoice 1 choice [ Group { } DEF chosen Group { children Shape { geometry DEF g Cylinder { radius 3 } } } ] }
    Shape { geometry IndexedLineSet { coord DEF c Coordinate { point [ 0 0 0, 1 1 1 ] } coordIndex [ 0, 1, -1 ] color Color { color [ 1 0 0 ] } } }
    Shape { appearance DEF look Appearance { texture DEF t PixelTexture { image 2 2 3 1 2 3 4 } textureTransform TextureTransform { scale 2 2 } }
      geometry IndexedFaceSet { coord USE c texCoord TextureCoordinate { point [ 0 0, 1 1 ] } coordIndex [ 0 1 0 ] } }
    Shape { appearance USE look geometry ElevationGrid { xDimension 2 zDimension 2 xSpacing 1 zSpacing 1 height [ 0, 1, 2, 3 ] solid FALSE } }
    Shape { geometry DEF e Extrusion { crossSection [ 1 1, 1 -1, -1 -1, -1 1, 1 1 ] spine [ 0 0 0, 0 2 0 ] scale [ 1 1, 2 2 ] } }
    Shape { geometry PointSet { coord USE c } } Inline { url "none.wrl" } ] }
  USE root USE e TriangleStripSet { numVertices [ 3 4 ] } Separator { MatrixTransform { matrix 1 2 3 } } "text" 0x1F # end
)";

TEST(Robustness, EveryTruncationOfARichScene) {
  for (std::size_t length = 0; length < RichScene.size(); ++length) {
    SCOPED_TRACE(length);
    LoadBytes(RichScene.substr(0, length));
  }
}

// Words of the scene in any order and number, from a fixed seed.
TEST(Robustness, WordsInAnyOrder) {
  std::istringstream stream(RichScene.substr(RichScene.find('\n')));
  const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    std::string scene = round % 2 == 0 ? "#VRML V2.0 utf8\n" : "#VRML V1.0 ascii\n";
    for (int i = 0; i < 400; ++i) scene += words[random() % words.size()] + " ";
    LoadBytes(scene);
  }
}

// Every byte of the scene replaced once by one that means something to the reader.
TEST(Robustness, BytesThatChange) {
  const std::string meaningful("{}[]()\"#\\-9 \0\n\xFF", 15);
  for (std::size_t i = 0; i < RichScene.size(); ++i) {
    SCOPED_TRACE(i);
    std::string scene = RichScene;
    scene[i] = meaningful[i % meaningful.size()];
    LoadBytes(scene);
  }
}

void OnSmallStack(void* (*work)(void*), void* argument) {
  constexpr std::size_t StackBytes = 1U << 20U;
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, StackBytes);
  pthread_t thread{};
  ASSERT_EQ(pthread_create(&thread, &attributes, work, argument), 0);
  pthread_join(thread, nullptr);
}

TEST(Robustness, DeepNestingFitsOnASmallStack) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "frames are larger under the sanitizer";
#endif
  constexpr int Depth = 700;
  std::string closing(Depth, '}');
  const auto repeated = [](const std::string& text) {
    std::string all = "#VRML V2.0 utf8\n";
    for (int i = 0; i < Depth; ++i) all += text;
    return all;
  };
  for (const std::string text :
       {"Transform { children ", "Shape { geometry DEF a ", "Collision { children [ ", "[ ", "LOD { level [ ",
        "Group { children DEF x Transform { children DEF y ", "IndexedFaceSet { coord ", "Appearance { material ",
        "Switch { whichChoice 0 choice [ ", "PROTO P [] { Shape { geometry Group { children P { } } } } P { } "}) {
    std::string scene = repeated(text) + "Box {}" + closing;
    OnSmallStack(
        [](void* bytes) -> void* {
          LoadBytes(*static_cast<std::string*>(bytes));
          return nullptr;
        },
        &scene);
  }
}

}  // namespace
