// Writes the manual page and the completions of the command into a folder: qelvrml-pages FOLDER

#include "Pages.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

#include "CommandLine.h"

std::vector<const CLI::App*> Commands(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App* /*command*/) { return true; });
}

std::vector<const CLI::Option*> Options(const CLI::App& app) {
  return app.get_options([](const CLI::Option* option) { return option->nonpositional(); });
}

std::vector<const CLI::Option*> Places(const CLI::App& app) {
  return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

std::vector<std::string> Names(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

std::string Synopsis(const CLI::Option& option) {
  return Names(option).back() + (HasValue(option) ? " " + option.get_type_name() : "");
}

std::string ValueWords(const CLI::Option& option) {
  for (const auto& [name, words] : OptionWords) {
    if (option.check_name(name)) return words;
  }
  return "";
}

int main(int argc, char** argv) {
  if (argc != 2) return EXIT_FAILURE;
  Arguments arguments;
  const std::unique_ptr<CLI::App> app = MakeCommandLine(arguments);
  const auto write = [&](const char* name, const std::string& text) {
    std::ofstream file(std::string(argv[1]) + "/" + name, std::ios::binary);
    return static_cast<bool>(file << text << std::flush);
  };
  const bool written = write("qelvrml.1", ManPage(*app)) && write("qelvrml.bash", BashCompletion(*app)) &&
                       write("_qelvrml", ZshCompletion(*app));
  if (!written) std::cerr << "can't write to " << argv[1] << '\n';
  return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
