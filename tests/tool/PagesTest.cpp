#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "support/Model.h"
#include "support/Tool.h"

namespace {

const std::string Pages = QELVRML_TOOL_PAGES;

/// What stands at the start of an indented line of a help text: "-h,--help" and "info".
std::set<std::string> WordsOfHelp(const std::string& arguments) {
  std::set<std::string> words;
  const std::string help = RunTool(arguments + " --help").Out;
  const std::regex line("\n  ([a-z-][^ 0-9]*) ");
  for (std::sregex_iterator match(help.begin(), help.end(), line); match != std::sregex_iterator(); ++match) {
    std::istringstream names((*match)[1]);
    for (std::string name; std::getline(names, name, ',');) words.insert(name);
  }
  return words;
}

TEST(Pages, NameEachCommandAndOption) {
  const std::set<std::string> words = WordsOfHelp("");
  EXPECT_EQ(words, (std::set<std::string>{"-h", "--help", "--version", "info", "dump", "measure", "convert", "view",
                                          "picture"}));
  std::set<std::string> all = words;
  for (const std::string& command : words) {
    if (command.starts_with("-")) continue;
    const std::set<std::string> options = WordsOfHelp(command);
    EXPECT_TRUE(options.contains("--help")) << command;
    all.insert(options.begin(), options.end());
  }
  for (const char* option : {"--json", "--into", "--output"}) EXPECT_TRUE(all.contains(option)) << option;
  for (const char* page : {"/qelvrml.1", "/qelvrml.bash", "/_qelvrml"}) {
    const std::string text = std::regex_replace(ReadWholeFile(Pages + page), std::regex(R"(\\-)"), "-");
    for (const std::string& word : all) {
      EXPECT_TRUE(std::regex_search(text, std::regex("(^|[^a-z-])" + word + "([^a-z-]|$)"))) << page << " " << word;
    }
  }
}

/// What bash offers for the last of these words.
std::string Completions(const std::string& words, int last) {
  return RunShell("bash -c 'source " + Pages + "/qelvrml.bash; COMP_WORDS=(" + words +
                  "); COMP_CWORD=" + std::to_string(last) + "; _qelvrml; printf \"%s|\" \"${COMPREPLY[@]}\"'")
      .Out;
}

TEST(Pages, CompleteWordsInBash) {
  EXPECT_EQ(Completions("qelvrml in", 1), "info|");
  EXPECT_EQ(Completions("qelvrml --v", 1), "--version|");
  EXPECT_EQ(Completions("qelvrml info --j", 2), "--json|");
  EXPECT_EQ(Completions("qelvrml dump --j", 2), "|");
  EXPECT_EQ(Completions("qelvrml convert x --to g", 4), "glb|gltf|");
  const TemporaryFolder folder;
  folder.Write("my scene.WRL", "");
  folder.Write("more/lamp.wrl.gz", "");
  folder.Write("moss.png", "");
  const std::string path = folder.Path().string();
  EXPECT_EQ(Completions("qelvrml info " + path + "/m", 2), path + "/my scene.WRL|" + path + "/more|");
  EXPECT_EQ(Completions("qelvrml info x " + path + "/more/", 3), path + "/more/lamp.wrl.gz|");
}

TEST(Pages, AreWellFormed) {
  for (const std::string& check :
       {"groff -man -ww -Tutf8 " + Pages + "/qelvrml.1 >/dev/null", "zsh -n " + Pages + "/_qelvrml"}) {
    if (RunShell("command -v " + check.substr(0, check.find(' '))).Status != 0) continue;
    const ToolOutput output = RunShell(check);
    EXPECT_EQ(output.Error, "") << check;
    EXPECT_EQ(output.Status, 0) << check;
  }
}

}  // namespace
