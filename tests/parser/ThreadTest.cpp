// Loads on two threads at once, each with a parser and a world of its own, give what a load alone gives.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <latch>
#include <thread>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Gzip.h"
#include "support/Model.h"

namespace {

const std::string Scene = R"(#VRML V2.0 utf8
  PROTO Ball [ field SFFloat r 2 field SFNode n Sphere { } ] { Shape { geometry Sphere { radius IS r } } }
  DEF root Transform { translation 1 2 3 children [ DEF b Ball { r 5 } Ball { } USE b Inline { url "part.wrl" }
    Shape { appearance DEF look Appearance { material Material { diffuseColor 0 1 0 } texture PixelTexture { image 1 1 3 5 } }
      geometry IndexedFaceSet { coord DEF c Coordinate { point [ 0 0 0, 4 0 0, 4 4 0, 1 1 0, 0 4 0 ] } coordIndex [ 0 1 2 3 4 ]
        texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1, 0.5 0.5, 0 1 ] } convex FALSE } }
    Shape { appearance USE look geometry IndexedLineSet { coord USE c coordIndex [ 0 1 2 -1 3 4 ] } }
    Shape { geometry Extrusion { crossSection [ 0 0, 4 0, 4 4, 0 4, 0 0, 1 1, 1 2, 2 2, 1 1 ] spine [ 0 0 0, 0 2 0 ] } }
    Shape { geometry ElevationGrid { xDimension 2 zDimension 2 xSpacing 1 zSpacing 1 height [ 0, 1, 2, 3 ] } }
    Shape { geometry DEF d Cylinder { } } Shape { appearance Appearance { texture ImageTexture { url "tile.png" } } geometry Box { } } ] }
  USE root)";

/// Loads a file and describes its model.
std::string LoadAndDescribe(const std::string& path) {
  Model model;
  model.World->GetTextureManager()->AddAlternatePath(QELVRML_TEST_SCENES);
  model.Result = model.Parser->Parse(model.World.get(), path.c_str());
  CheckModel(*model.World);
  return model.Describe();
}

TEST(Thread, LoadsDontDisturbEachOther) {
  const TemporaryFolder folder;
  folder.Write("part.wrl", "#VRML V2.0 utf8\nShape { geometry DEF d Cone { } }");
  const std::array paths{folder.Write("plain.wrl", Scene), folder.Write("packed.wrl", Gzip(Scene))};
  const std::array alone{LoadAndDescribe(paths[0]), LoadAndDescribe(paths[1])};
  EXPECT_THAT(alone, testing::Each(testing::ContainsRegex("^0 3 .*3x2 "))) << "loaded, in centimetres, with its image";

  std::latch start(2);
  const auto load = [&](std::size_t first) {
    start.arrive_and_wait();
    for (std::size_t i = first; i < first + 20; ++i) ASSERT_EQ(LoadAndDescribe(paths[i % 2]), alone[i % 2]);
  };
  std::thread other(load, 1);
  load(0);
  other.join();
}

}  // namespace
