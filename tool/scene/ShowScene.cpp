#include "scene/ShowScene.h"

#include "CommandLine.h"
#include "Failures.h"

int ShowScene(const std::string& path, const Resolution& resolution, const SceneWriter& write) {
  const LoadedFile file = LoadFile(path);
  const Scene scene = MakeScene(file, resolution);
  if (scene.IsEmpty()) {
    ReportProblem(path, WhyNothingToShow(file));
    return file.Problem.empty() ? StatusNothingLoaded : ExitStatus(file.Result);
  }
  const std::string problem = write(file, scene);
  if (problem.empty()) return 0;
  ReportProblem(path, problem);
  return StatusNotWritten;
}
