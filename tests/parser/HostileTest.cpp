// Small files that ask for much: scenes/hostile/make.py tells what each of them does.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/Limits.h"
#include "qelvrml/platform/brixex/CKelWorld.h"

namespace {

std::vector<std::string> HostileScenes() {
  std::vector<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(QELVRML_TEST_SCENES "/hostile")) {
    const std::filesystem::path extension = file.path().extension();
    if (extension == ".wrl" || extension == ".gz") names.push_back(file.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// What a load may make at most, by the text that it reads.
std::int64_t MostObjects(std::uint64_t bytes) {
  return static_cast<std::int64_t>((qelvrml::StepsOfAnyFile + bytes * qelvrml::StepsOfAByte) /
                                   qelvrml::StepsOfAnObject);
}

std::int64_t ObjectsIn(const brixBaseGroup& group) {
  std::int64_t count = group.GetNumObjects();
  for (int i = 0; i < group.GetNumGroups(); ++i) count += ObjectsIn(*group.GetGroupAt(i));
  return count;
}

class Hostile : public testing::TestWithParam<std::string> {};

// Each would be a thousand times over the bound, or take minutes, if something weren't paid for.
TEST_P(Hostile, EndsWithinItsBounds) {
  constexpr std::uint64_t LargestText = 5'000'000;
  CKelWorld world;
  CVRMLParser parser;
  const std::string path = QELVRML_TEST_SCENES "/hostile/" + GetParam();
  const VRMLLoadResultTypes result = parser.Parse(&world, path.c_str());
  EXPECT_TRUE(result == VRMLLoadOK || result == VRMLLoadFailed);
  EXPECT_LE(ObjectsIn(world), MostObjects(LargestText));
  EXPECT_EQ(parser.GetSeparatorStack()->GetCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Scenes, Hostile, testing::ValuesIn(HostileScenes()));

}  // namespace
