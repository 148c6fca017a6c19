#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

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
    std::string difference = Difference(value, other, place + "/" + key);
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
    Json dump = Dump(path.replace_extension("wrl").string());
    EXPECT_EQ(dump.erase("notes"), 1);
    EXPECT_EQ(Difference(expected, dump), "") << path;
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

/// A node and its use, in groups of their own, make the same objects. A line of the file is a node between two @ in its
/// surroundings.
void ExpectUses(const std::string& file, const std::string& header, const std::string& group, const std::string& end) {
  const TemporaryFolder folder;
  std::istringstream lines(ReadWholeFile(QELVRML_TEST_SCENES "/" + file));
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    const std::size_t node = line.find('@');
    const std::size_t behind = line.rfind('@');
    ASSERT_NE(node, behind) << line;
    const auto written = [&](const std::string& name, const std::string& what) {
      return "DEF " + name + group + line.substr(0, node) + what + line.substr(behind + 1) + end;
    };
    const std::string defined = written("first", "DEF n " + line.substr(node + 1, behind - node - 1));
    const Json groups =
        Dump(folder.Write("twice.wrl", header + "\n" + defined + written("second", "USE n ")))["world"]["groups"];
    ASSERT_EQ(groups.size(), 2) << line;
    EXPECT_FALSE(Objects(groups[0]).empty()) << line;
    EXPECT_EQ(Objects(groups[0]), Objects(groups[1])) << line;
  }
  EXPECT_GT(count, 20);
}

TEST(Scenes, UsesMakeWhatDefinitionsMade) {
  ExpectUses("uses-1.0.txt", "#VRML V1.0 ascii", " Separator {", " }\n");
  ExpectUses("uses-2.0.txt", "#VRML V2.0 utf8", " Group { children [", " ] }\n");
}

}  // namespace
