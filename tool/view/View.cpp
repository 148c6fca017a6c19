#include "view/View.h"

#include <iostream>

#include "Failures.h"
#include "Output.h"
#include "Paths.h"
#include "scene/ShowScene.h"
#include "text/Figures.h"
#include "text/Text.h"
#include "view/Page.h"

int View(const Arguments& arguments) {
  constexpr double ShareOfRadius = 0.01;
  const std::string& path = arguments.Paths.front();
  const std::string output = arguments.Output.empty() ? SceneStem(path) + ".html" : arguments.Output;
  if (!HasEnding(output, ".html") && !HasEnding(output, ".htm")) {
    ReportProblem(output, "the name of a page ends in .html or .htm");
    return StatusWrongArguments;
  }
  return ShowScene(path, {arguments.Tolerance, ShareOfRadius}, [&](const LoadedFile& file, const Scene& scene) {
    const std::string page = MakePage(file, scene);
    const OutputFile written{output, page};
    std::string problem = WriteFiles({&written, 1}, arguments.Force ? Existing::Replace : Existing::Keep);
    if (!problem.empty()) return problem;
    std::cout << Printable(output) << ": open it in a browser; " << Bytes(page.size()) << '\n';
    FlushOutput();
    return problem;
  });
}
