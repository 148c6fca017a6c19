#include <string_view>

#include "CommandLine.h"
#include "Pages.h"

namespace {

// A text within single quotes, where _arguments and _describe take brackets and colons for their own.
std::string Quoted(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\'') {
      result += "'\\''";
    } else {
      if (std::string_view("[]:\\").find(c) != std::string_view::npos) result += '\\';
      result += c;
    }
  }
  return result;
}

// What follows an option: a word of a few, a file or folder, or something that can't be completed.
std::string ValueText(const CLI::Option& option) {
  if (!HasValue(option)) return "";
  const std::string type = option.get_type_name();
  const std::string words = ValueWords(option);
  std::string action = words.empty() ? " " : "(" + words + ")";
  if (type == "PAGE") action = "_files";
  if (type == "FOLDER") action = "_files -/";
  return ":" + Quoted(type) + ":" + action;
}

// Help and version exclude everything else.
std::string OptionLine(const CLI::App& app, const CLI::Option& option) {
  std::string names;
  for (const std::string& name : Names(option)) names += (names.empty() ? "" : ",") + name;
  if (names.find(',') != std::string::npos) names = "'{" + names + "}'";
  const bool alone = &option == app.get_help_ptr() || &option == app.get_version_ptr();
  return std::string("'") + (alone ? "(- *)" : "") + names + "[" + Quoted(option.get_description()) + "]" +
         ValueText(option) + "'";
}

std::string ScenePattern() {
  std::string endings;
  for (const char* ending : SceneEndings) endings += (endings.empty() ? "" : "|") + std::string(ending);
  return "*.(#i)(" + endings + ")(-.)";
}

std::string CommandCase(const CLI::App& command) {
  std::string text = "        " + command.get_name() + ")\n          _arguments";
  for (const CLI::Option* option : Options(command)) text += " \\\n            " + OptionLine(command, *option);
  int number = 0;
  for (const CLI::Option* place : Places(command)) {
    const std::string which = IsRepeated(*place) ? "*" : std::to_string(++number);
    text += " \\\n            '" + which + ":" + place->get_name() + ":_files -g \"" + ScenePattern() + "\"'";
  }
  return text + "\n          ;;\n";
}

}  // namespace

std::string ZshCompletion(const CLI::App& app) {
  std::string options;
  std::string commands;
  std::string cases;
  for (const CLI::Option* option : Options(app)) options += "    " + OptionLine(app, *option) + " \\\n";
  for (const CLI::App* command : Commands(app)) {
    commands += "    '" + command->get_name() + ":" + Quoted(command->get_description()) + "'\n";
    cases += CommandCase(*command);
  }
  return R"(#compdef qelvrml
# Completion of the qelvrml command for zsh.

_qelvrml() {
  local curcontext=$curcontext state line
  local -a commands=(
)" + commands +
         R"(  )
  _arguments -C \
)" + options +
         R"(    '1: :->command' \
    '*:: :->argument'
  case $state in
    command) _describe command commands ;;
    argument)
      case $words[1] in
)" + cases +
         R"(      esac
      ;;
  esac
}

_qelvrml "$@"
)";
}
