// The qelvrml command: shows, measures and converts what VRML files hold.

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "CommandLine.h"
#include "Dump.h"
#include "Failures.h"
#include "Load.h"
#include "convert/Convert.h"
#include "info/Info.h"
#include "measure/MeasureScene.h"
#include "picture/Picture.h"
#include "view/View.h"

namespace {

int TellDump(const std::string& path) {
  const LoadedFile file = LoadFile(path);
  Dump(file);
  FlushOutput();
  if (!file.Problem.empty()) ReportProblem(path, file.Problem);
  return ExitStatus(file.Result);
}

// The command line refuses a command that this build lacks.
int Obey(const Arguments& arguments) {
  switch (arguments.Asked) {
    case Command::Info: return TellInfo(arguments.Paths, arguments.Json);
    case Command::Dump: return TellDump(arguments.Paths.front());
    case Command::Measure: return MeasureScene(arguments);
    case Command::Convert:
      if constexpr (QELVRML_HAS_CONVERT != 0) return Convert(arguments);
      break;
    case Command::View:
      if constexpr (QELVRML_HAS_VIEW != 0) return View(arguments);
      break;
    case Command::Picture:
      if constexpr (QELVRML_HAS_PICTURE != 0) return MakePicture(arguments);
      break;
  }
  return StatusInternalError;
}

int Run(int argc, char** argv) {
  Arguments arguments;
  const std::unique_ptr<CLI::App> app = MakeCommandLine(arguments);
  try {
    app->parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app->exit(error) == 0 ? 0 : StatusWrongArguments;
  }
  return Obey(arguments);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::bad_alloc&) {
    return ReportOutOfMemory();
  } catch (const std::exception& error) {
    std::cerr << "qelvrml: " << error.what() << '\n';
    return StatusInternalError;
  }
}
