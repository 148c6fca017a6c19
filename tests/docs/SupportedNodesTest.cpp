#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>

#include "qelvrml/foundation/AsciiCase.h"
#include "qelvrml/parser/KeywordTable.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Model.h"
#include "support/Tool.h"

// Holds docs/supported-nodes.md against the reader.

namespace {

/// A row of the page's tables of nodes.
struct NodeRow {
  std::string Header;  // of a file
  std::string Node;
  bool IsNode = false;  // else of fields of that node
  std::vector<std::string> Fields;
  std::string Outcome;
  std::string Scene;    // the node's example
  std::string Example;  // of the fields
};

std::string Capitals(std::string word) {
  std::transform(word.begin(), word.end(), word.begin(), qelvrml::ToUpperAscii);
  return word;
}

std::vector<std::string> CodeWords(const std::string& text) {
  static const std::regex code("`([^`]+)`");
  std::vector<std::string> words;
  for (std::sregex_iterator it(text.begin(), text.end(), code), end; it != end; ++it) words.push_back((*it)[1]);
  return words;
}

std::string PageText() { return ReadWholeFile(QELVRML_DOCS "/supported-nodes.md"); }

std::vector<NodeRow> ReadPage() {
  static const std::regex cells(R"(\| ?(.*?) ?\| ?(.*?) ?\| (.+?) \| ?(.*?) ?\| `(.+)` \|)");
  std::istringstream page(PageText());
  std::vector<NodeRow> rows;
  NodeRow row;
  std::smatch found;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) row.Header = line == "## VRML 2.0" ? "#VRML V2.0 utf8\n" : "#VRML V1.0 ascii\n";
    if (!std::regex_match(line, found, cells)) continue;
    const std::vector<std::string> node = CodeWords(found[1]);
    row.IsNode = !node.empty();
    row.Fields = CodeWords(found[2]);
    row.Outcome = found[3];
    row.Example = found[5];
    if (row.IsNode) row.Node = node[0];
    if (row.IsNode) row.Scene = row.Example;
    rows.push_back(row);
  }
  return rows;
}

// What a scene gives, with a file to inline and an image beside it.
std::string ModelOf(const NodeRow& row, const std::string& scene) {
  static const TemporaryFolder folder;
  static const bool written = [] {
    folder.Write("tile.png", ReadWholeFile(QELVRML_TEST_SCENES "/tile.png"));
    return !folder.Write("part.wrl", "#VRML V1.0 ascii\nSphere { radius 7 }").empty();
  }();
  EXPECT_TRUE(written);
  Model model;
  model.World->GetTextureManager()->AddAlternatePath(folder.Path().c_str());
  const std::string path = folder.Write("scene.wrl", row.Header + scene);
  model.Result = model.Parser->Parse(model.World.get(), CBasicString(path.c_str()));
  const std::string text = model.Describe();
  return text.substr(text.find(' '));  // without the result, which an unknown node alone makes a failure
}

std::size_t BehindBrace(const NodeRow& row) {
  const std::size_t place = row.Scene.find(row.Node + " {");
  EXPECT_NE(place, std::string::npos) << row.Node << " opens no block in " << row.Scene;
  return place + row.Node.size() + 2;
}

std::string AsFirstField(const NodeRow& row) {
  return std::string(row.Scene).insert(BehindBrace(row), " " + row.Example + " ");
}

std::string AsLastField(const NodeRow& row) {
  std::size_t place = BehindBrace(row);
  for (int depth = 1; depth > 0; ++place) depth += row.Scene[place] == '{' ? 1 : row.Scene[place] == '}' ? -1 : 0;
  return std::string(row.Scene).insert(place - 1, " " + row.Example + " ");
}

bool IsKeyword(const std::string& word) {
  return std::ranges::any_of(GetKeywordTable(), [&word](const auto& entry) { return entry.Name == Capitals(word); });
}

// Whether the dispatcher has an operation for a keyword. Where there is none, one call steps over the word alone.
bool HasParser(const std::string& word) {
  const Model model;
  CVRMLIOManager& tokens = *model.Parser->GetIOManager();
  const std::string text = word + " { }";
  model.Parser->SetWorld(model.World.get());
  model.Parser->DefineSeparator();
  tokens.StartBufferReading(text.data(), static_cast<int>(text.size()));
  model.Parser->ParseBlock();
  const bool steppedOverWord = model.Parser->GetCurrentTokenType() == VRMLTokenOpenBrace;
  tokens.StopBufferReading();
  return !steppedOverWord;
}

std::string OutcomeOfNode(const NodeRow& row) {
  std::string without = row.Scene;
  const bool counts =
      ModelOf(row, without.replace(without.find(row.Node), row.Node.size(), "Nothing")) != ModelOf(row, row.Scene);
  if (counts) return "applied";
  return IsKeyword(row.Node) && HasParser(row.Node) ? "dropped" : "unknown";
}

std::string OutcomeOfFields(const NodeRow& row) {
  const std::string base = ModelOf(row, row.Scene);
  const std::string first = ModelOf(row, AsFirstField(row));
  const bool lastCounts = ModelOf(row, AsLastField(row)) != base;
  const bool isNode = row.Example.find('{') != std::string::npos;
  const std::string cut = row.Scene.substr(0, BehindBrace(row)) + " " + row.Example;
  if (isNode && !lastCounts && first != base && first == ModelOf(row, cut)) return "ends the node";
  if (lastCounts || first != base) return "applied";
  return std::ranges::any_of(row.Fields, IsKeyword) ? "dropped" : "unknown";
}

TEST(SupportedNodes, EachRowSaysWhatHappens) {
  const std::vector<NodeRow> rows = ReadPage();
  for (const NodeRow& row : rows) {
    const std::string name = row.Header + row.Node + ": " + row.Example;
    EXPECT_EQ(row.IsNode ? OutcomeOfNode(row) : OutcomeOfFields(row), row.Outcome) << name;
    if (row.IsNode) continue;
    // Fields of one row meet the same fate, and an applied one is alone with its effect.
    EXPECT_TRUE(row.Outcome != "applied" || row.Fields.size() == 1) << name;
    for (const std::string& field : row.Fields) {
      EXPECT_EQ(IsKeyword(field), row.Outcome != "unknown") << name << ": " << field;
      EXPECT_TRUE(std::regex_search(row.Example, std::regex("\\b" + field + "\\b"))) << name << ": " << field;
    }
  }
  EXPECT_GT(rows.size(), 200U);
}

TEST(SupportedNodes, EachKeywordIsOnThePage) {
  const std::string page = PageText();
  std::set<std::string> words;
  static const std::regex word("[A-Za-z_0-9]+");
  for (const std::string& code : CodeWords(page)) {
    for (std::sregex_iterator it(code.begin(), code.end(), word), end; it != end; ++it)
      words.insert(Capitals(it->str()));
  }
  std::set<std::string> nodes;
  for (const NodeRow& row : ReadPage()) {
    if (row.IsNode) nodes.insert(Capitals(row.Node));
  }
  for (const ParserKeywordEntry& entry : GetKeywordTable()) {
    if (std::string_view("{}[]()").find(entry.Name) != std::string_view::npos) continue;
    EXPECT_TRUE(words.contains(entry.Name)) << entry.Name;
    EXPECT_EQ(nodes.contains(entry.Name), HasParser(entry.Name)) << entry.Name;
  }
}

}  // namespace
