#include "measure/MeasureJson.h"

#include <iostream>
#include <string>

#include "Failures.h"
#include "text/Json.h"
#include "text/Text.h"
#include "text/Units.h"

namespace {

Json PointToJson(float x, float y, float z) { return {Shortest(x), Shortest(y), Shortest(z)}; }

Json BoxToJson(const brixBBox& box) {
  if (box.IsEmpty()) return nullptr;
  const brixFloatPoint& from = box.GetMinimum();
  const brixFloatPoint& to = box.GetMaximum();
  return {{"min", PointToJson(from.x, from.y, from.z)},
          {"max", PointToJson(to.x, to.y, to.z)},
          {"size", PointToJson(to.x - from.x, to.y - from.y, to.z - from.z)}};
}

void AddMeasures(const Measures& sum, Json& object) {
  object["box"] = BoxToJson(sum.Box);
  object["area"] = sum.Area;
  object["volume"] = sum.Volume() ? Json(*sum.Volume()) : Json(nullptr);
  object["closed"] = sum.IsClosed();
  object["bodies"] = sum.Bodies;
  object["bodiesVolume"] = sum.BodiesVolume;
  object["openSurfaces"] = sum.OpenSurfaces;
  object["openEdges"] = sum.OpenEdges;
  object["nonManifoldEdges"] = sum.NonManifoldEdges;
  object["points"] = sum.Points;
  object["faces"] = sum.Faces;
}

// An object without its closing brace, and with a comma, for what is to be added.
std::string Opened(const Json& object) {
  std::string text = object.dump();
  text.back() = ',';
  return text;
}

// Scenes have objects by the hundred thousand, so that each is written by itself.
void PrintGroup(const MeasuredGroup& group, Json start) {
  AddMeasures(group.Sum, start);
  std::cout << Opened(start) << "\"objects\":[";
  const char* before = "";
  for (const MeasuredObject& object : group.Objects) {
    Json written = {{"type", object.Object->GetClassName()},
                    {"name", ToUtf8(object.Object->GetObjectName().GetText())}};
    AddMeasures(object.Sum, written);
    std::cout << before << written;
    before = ",";
  }
  std::cout << "],\"groups\":[";
  before = "";
  for (const MeasuredGroup& inner : group.Groups) {
    std::cout << before;
    PrintGroup(inner, {{"name", ToUtf8(inner.Group->GetGroupName().GetText())}});
    before = ",";
  }
  std::cout << "]}";
}

}  // namespace

void PrintMeasureJson(const LoadedFile& file, const MeasuredGroup& scene) {
  const EndWhenOutOfMemory guard;
  Json start = {{"file", ToUtf8(CBasicString(file.Path.c_str()))}, {"result", ResultName(file.Result)}};
  if (!file.Problem.empty()) start["problem"] = file.Problem;
  start["units"] = UnitsName(file.Units);
  std::cout << Opened(start) << "\"scene\":";
  PrintGroup(scene, Json::object());
  Json end;
  AddNotes(file, end);
  std::cout << ',' << end.dump().substr(1) << '\n';
}
