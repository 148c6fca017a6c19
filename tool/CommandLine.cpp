#include "CommandLine.h"

#include <CLI/CLI.hpp>

namespace {

std::string ExitStatusText() {
  std::string text = "Exit status, of the first file that wasn't loaded:";
  for (const auto& [word, meaning] : ExitStatuses) {
    text += std::string("\n  ") + word + std::string(4 - std::string(word).size(), ' ') + meaning;
  }
  return text;
}

void AddInfo(CLI::App& app, Arguments& arguments) {
  CLI::App* info =
      app.add_subcommand("info", "Tell what files hold, and what of them couldn't be read")->group("Commands");
  info->add_option("PATH", arguments.Paths, "VRML files, plain or packed (gzip, PK-zip), or folders")
      ->required()
      ->option_text(" ");
  info->add_flag("--json", arguments.Json, "Print the same facts as JSON");
  info->footer(
      "One file gives a full report. Several files, or a folder, give a line for each\n"
      "file and a total. Folders and the folders in them are searched for names that\n"
      "end in .wrl, .wrz, .vrml or .vrz, or in .gz or .zip behind .wrl or .vrml, in\n"
      "any case; links to folders aren't followed. On a terminal, paths that are too\n"
      "long for a line of figures lack their start.\n"
      "\n"
      "As JSON, one file is an object; several are {\"files\": [...], \"total\": {...}}.");
  info->callback([&arguments] { arguments.Info = true; });
}

void AddDump(CLI::App& app, Arguments& arguments) {
  CLI::App* dump = app.add_subcommand("dump", "Print the model of a file as JSON")->group("Commands");
  dump->add_option("FILE", arguments.Paths, "A VRML file, plain or packed (gzip, PK-zip)")
      ->required()
      ->expected(1)
      ->option_text(" ");
  dump->footer("There is JSON for every result of the load, also when nothing was loaded.");
}

}  // namespace

std::unique_ptr<CLI::App> MakeCommandLine(Arguments& arguments) {
  auto app = std::make_unique<CLI::App>("Tells what VRML 1.0 and 2.0 files hold.", "qelvrml");
  app->set_help_flag("-h,--help", "Show this help");
  app->set_version_flag("--version", "qelvrml " QELVRML_VERSION, "Show the version");
  app->require_subcommand(1);
  app->failure_message([](const CLI::App* /*app*/, const CLI::Error& error) {
    return std::string("qelvrml: ") + error.what() + "; --help tells more\n";
  });
  app->get_formatter()->column_width(16);
  app->get_formatter()->label("SUBCOMMAND", "COMMAND");
  AddInfo(*app, arguments);
  AddDump(*app, arguments);
  app->footer(ExitStatusText());
  return app;
}
