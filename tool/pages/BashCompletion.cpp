#include "CommandLine.h"
#include "Pages.h"

namespace {

std::string OptionNames(const CLI::App& app) {
  std::string words;
  for (const CLI::Option* option : Options(app)) {
    for (const std::string& name : Names(*option)) words += (words.empty() ? "" : " ") + name;
  }
  return words;
}

// A case for each option whose values are words.
std::string ValueCases(const CLI::App& app) {
  std::string cases;
  for (const CLI::App* command : Commands(app)) {
    for (const CLI::Option* option : Options(*command)) {
      const std::string words = ValueWords(*option);
      if (!words.empty()) cases += "    " + Names(*option).back() + ") words='" + words + "' ;;\n";
    }
  }
  return cases;
}

std::string EndingsExpression() {
  std::string expression;
  for (std::string ending : SceneEndings) {
    if (const std::size_t point = ending.find('.'); point != std::string::npos) ending.insert(point, "\\");
    expression += (expression.empty() ? "" : "|") + ending;
  }
  return "\\.(" + expression + ")$";
}

}  // namespace

std::string BashCompletion(const CLI::App& app) {
  std::string commands;
  std::string cases;
  for (const CLI::App* command : Commands(app)) {
    commands += command->get_name() + " ";
    cases += "      " + command->get_name() + ") words='" + OptionNames(*command) + "' ;;\n";
  }
  return R"(# Completion of the qelvrml command for bash.

_qelvrml() {
  local current=${COMP_WORDS[COMP_CWORD]} words='' file
  COMPREPLY=()
  case ${COMP_WORDS[COMP_CWORD - 1]} in
)" + ValueCases(app) +
         R"(  esac
  if [[ -n $words ]]; then
    :
  elif ((COMP_CWORD == 1)); then
    words=')" +
         commands + OptionNames(app) + R"('
  elif [[ $current == -* ]]; then
    case ${COMP_WORDS[1]} in
)" + cases +
         R"(    esac
  else
    # Scenes and folders. Without any, bash offers all files.
    local scene=')" +
         EndingsExpression() + R"('
    compopt -o filenames 2>/dev/null
    while IFS= read -r file; do
      if [[ -d $file || ${file,,} =~ $scene ]]; then COMPREPLY+=("$file"); fi
    done < <(compgen -f -- "$current")
    return
  fi
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -o bashdefault -o default -F _qelvrml qelvrml
)";
}
