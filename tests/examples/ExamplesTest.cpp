#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Model.h"

namespace {

using Counts = std::map<std::string, int>;

// What a scene holds, counted in its text: objects of each class, objects in all groups of a name, textures. A cylinder
// has two disks, a cone one.
const std::map<std::string, std::string> exampleScenes = {
    {"desk.wrl", "CKelPolyface 1 brixCone 1 brixCylinder 4 brixDisk 9 brixSphere 1 / lamp 3 leg 12 top 1 / 0"},
    {"molecule.wrl",
     "brixCylinder 25 brixDisk 50 brixSphere 24 / bonds 75 carbon 8 hydrogen 10 nitrogen 4 oxygen 2 / 0"},
    {"robot.wrl",
     "brixBox 9 brixCylinder 13 brixDisk 26 brixSphere 13 / antenna 4 eye 4 head 6 leftArm 0 leftLeg 0 leg 16"
     " lowerArm 10 panel 8 rightArm 0 rightLeg 0 robot 0 torso 5 upperArm 8 / 0"},
    // 26 trees of a cylinder and two cones; the lake and the roof of the house are faces.
    {"terrain.wrl",
     "CKelPolyMesh 3 CKelPolyface 2 brixBox 1 brixCone 52 brixCylinder 26 brixDisk 104 /"
     " ground 1 house 2 lake 1 sand 1 snow 1 tree 182 wood 0 / 0"},
    {"textured-box.wrl", "CKelPolyface 4 / crate 3 floor 1 stack 0 / 2"},
    // The wall has one cap. Each of three flowers has a stem without caps, a middle, and six petals with two caps.
    {"vase.wrl",
     "CKelPolyMesh 25 CKelPolyface 37 brixSphere 3 /"
     " band 1 flower 6 inside 1 petal 54 petals 0 rim 1 vase 0 wall 2 / 0"},
};

void Count(const brixBaseGroup& group, Counts& classes, Counts& groups) {
  for (int i = 0; i < group.GetNumObjects(); ++i) ++classes[group.GetObjectAt(i)->GetClassName()];
  for (int i = 0; i < group.GetNumGroups(); ++i) {
    groups[ToString(group.GetGroupAt(i)->GetGroupName())] += group.GetGroupAt(i)->GetNumObjects();
    Count(*group.GetGroupAt(i), classes, groups);
  }
}

TEST(Examples, HoldWhatTheirScenesSay) {
  std::map<std::string, std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(QELVRML_EXAMPLE_SCENES)) {
    if (entry.path().extension() != ".wrl") continue;
    CKelWorld world;
    world.GetTextureManager()->AddAlternatePath(QELVRML_EXAMPLE_SCENES);
    CVRMLParser parser;
    EXPECT_EQ(parser.Parse(&world, entry.path().c_str()), VRMLLoadOK) << entry;
    EXPECT_TRUE(parser.GetNotes().empty()) << entry;
    CheckModel(world);
    Counts classes, groups;
    Count(world, classes, groups);
    std::string& text = found[entry.path().filename()];
    for (const auto& [name, count] : classes) text += name + ' ' + std::to_string(count) + ' ';
    text += '/';
    for (const auto& [name, count] : groups) text += ' ' + name + ' ' + std::to_string(count);
    text += " / " + std::to_string(world.GetTextureManager()->GetNumberTextures());
  }
  EXPECT_EQ(found, exampleScenes);
}

}  // namespace
