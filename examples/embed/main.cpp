// Loads a scene with both callbacks set and walks the model: groups, objects, materials, triangles.

#include <filesystem>
#include <iostream>
#include <string>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/CKelWorld.h"

namespace {

// Called from inside the load with a rising percentage.
void ShowProgress(int percentage) {
  if (percentage % 25 == 0) std::cerr << percentage << "% ";
}

// Called for each image that a scene refers to: looks beside the scene. A result other than 0 means that `path` is
// good.
int FindBesideScene(CBasicString scene, CBasicString wanted, CBasicString& path) {
  namespace fs = std::filesystem;
  const char* name = wanted.GetNarrowText();
  const char* from = scene.GetNarrowText();
  if (!name || !from) return 0;
  const fs::path candidate = fs::path(from).parent_path() / fs::path(name).filename();
  if (!fs::exists(candidate)) return 0;
  path = candidate.c_str();
  return 1;
}

std::string Text(const brixWRope& name) {
  const CBasicString text(name.GetText());
  const char* narrow = text.GetNarrowText();
  return narrow && *narrow ? narrow : "(unnamed)";
}

void Walk(const brixBaseGroup& group, const std::string& indent) {
  for (int i = 0; i < group.GetNumObjects(); ++i) {
    const brixBaseObject& object = *group.GetObjectAt(i);
    brixChroma colour;
    object.GetMatProps().GetFrontMaterial().GetDiffuse(colour);
    brixEvaluation evaluation;
    object.Evaluate(0.0, evaluation);
    std::cout << indent << Text(object.GetObjectName()) << ": " << evaluation.Triangles.size() / 3
              << " triangles, colour " << colour.red << ' ' << colour.green << ' ' << colour.blue << '\n';
  }
  for (int i = 0; i < group.GetNumGroups(); ++i) {
    std::cout << indent << "group " << Text(group.GetGroupAt(i)->GetGroupName()) << '\n';
    Walk(*group.GetGroupAt(i), indent + "  ");
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: embed FILE\n";
    return 64;
  }
  CKelWorld world;
  CVRMLParser parser;
  parser.SetLoaderPtr(ShowProgress);
  parser.SetGetSupportFilePtr(FindBesideScene);
  const VRMLLoadResultTypes result = parser.Parse(&world, argv[1]);
  std::cerr << '\n';
  if (result != VRMLLoadOK && result != VRMLLoadWarnings) return static_cast<int>(result);

  world.RecursiveUpdateBBox();
  std::cout << "largest extent " << world.GetBBox().GetLargestDimension() << ", unit " << parser.GetImageUnits()
            << '\n';
  Walk(world, "");
  return 0;
}
