#include "measure/MeasureScene.h"

#include "Failures.h"
#include "Load.h"
#include "measure/MeasureJson.h"
#include "measure/MeasureReport.h"
#include "measure/Measures.h"
#include "scene/Scene.h"

int MeasureScene(const Arguments& arguments) {
  const std::string& path = arguments.Paths.front();
  const LoadedFile file = LoadFile(path);
  const MeasuredGroup scene = MeasureModel(*file.World, {.Tolerance = arguments.Tolerance});
  const bool empty = scene.Sum.Box.IsEmpty();
  if (arguments.Json) {
    PrintMeasureJson(file, scene);
  } else if (!empty) {
    PrintMeasures(file, scene);
  }
  FlushOutput();
  if (empty || !file.Problem.empty()) ReportProblem(path, WhyNothingToShow(file));
  return file.Problem.empty() && empty ? StatusNothingLoaded : ExitStatus(file.Result);
}
