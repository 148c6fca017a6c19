#include "CommandLine.h"
#include "Pages.h"

namespace {

std::string OptionWords(const CLI::App& app) {
  std::string words;
  for (const CLI::Option* option : Options(app)) {
    for (const std::string& name : Names(*option)) words += (words.empty() ? "" : " ") + name;
  }
  return words;
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
    cases += "      " + command->get_name() + ") words='" + OptionWords(*command) + "' ;;\n";
  }
  return R"(# Completion of the qelvrml command for bash.

_qelvrml() {
  local current=${COMP_WORDS[COMP_CWORD]} words='' file
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    words=')" +
         commands + OptionWords(app) + R"('
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
