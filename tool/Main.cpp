// The qelvrml command: shows what a VRML file holds.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <stdexcept>
#include <string>

#include "Dump.h"
#include "Info.h"
#include "Load.h"

namespace {

constexpr int WrongArguments = 64;
constexpr int InternalError = 70;
constexpr int OutOfMemory = 71;

int ReportOutOfMemory() {
  std::fputs("qelvrml: out of memory\n", stderr);
  return OutOfMemory;
}

int Run(int argc, char** argv) {
  CLI::App app("Shows what a VRML file holds.", "qelvrml");
  app.set_version_flag("--version", "qelvrml " QELVRML_VERSION);
  app.require_subcommand(1);
  app.failure_message([](const CLI::App* /*app*/, const CLI::Error& error) {
    return std::string("qelvrml: ") + error.what() + "; --help tells more\n";
  });
  app.footer(
      "Exit status: 0 when the file was loaded, 1 when nothing in it could be loaded or it isn't a VRML file,\n"
      "2 when it can't be opened, 3 when it can't be unpacked, 64 for wrong arguments, 70 for a failure of the "
      "output,\n"
      "71 when memory runs out.");
  std::string path;
  CLI::App* info = app.add_subcommand("info", "Print for people what was loaded");
  CLI::App* dump = app.add_subcommand("dump", "Print the model as JSON");
  info->add_option("FILE", path, "A VRML 1.0 or 2.0 file")->required();
  dump->add_option("FILE", path, "A VRML 1.0 or 2.0 file")->required();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : WrongArguments;
  }

  const LoadedFile file = LoadFile(path);
  const std::string problem = WhatWentWrong(file);
  // The end of a JSON value needs memory and can't raise an exception; the load's temporary file is gone by now.
  std::set_new_handler([] { std::_Exit(ReportOutOfMemory()); });
  if (*dump) Dump(file);
  if (*info && problem.empty()) PrintInfo(file);
  if (!std::cout.flush()) throw std::runtime_error("can't write to standard output");
  if (!problem.empty()) std::cerr << "qelvrml: " << path << ": " << problem << '\n';
  return ExitStatus(file.Result);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::bad_alloc&) {
    return ReportOutOfMemory();
  } catch (const std::exception& error) {
    std::cerr << "qelvrml: " << error.what() << '\n';
    return InternalError;
  }
}
