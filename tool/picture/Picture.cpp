#include "picture/Picture.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

#include "Failures.h"
#include "Output.h"
#include "picture/Camera.h"
#include "picture/Context.h"
#include "picture/Drawing.h"
#include "picture/Renderer.h"
#include "scene/ShowScene.h"
#include "text/Text.h"

namespace {

constexpr double PictureShareOfRadius = 1.0 / 500.0;

/// A picture, and whether all that is to be seen is in it.
struct TakenPicture {
  Image Pixels;
  bool IsWhole;
};

TakenPicture TakePicture(const Scene& scene, const PictureOptions& options) {
  const Context context;
  const Camera camera(scene, options);
  const Drawing drawing = MakeDrawing(scene, camera, options);
  return {Renderer(drawing, scene.Images).Draw(camera, options), drawing.IsWhole};
}

}  // namespace

int MakePicture(const Arguments& arguments) {
  const std::string& path = arguments.Output;
  if (!HasEnding(path, ".png")) {
    ReportProblem(path, "pictures are .png files");
    return StatusWrongArguments;
  }
  bool isSeen = true;
  const auto write = [&](const LoadedFile& /*file*/, const Scene& scene) -> std::string {
    isSeen = std::any_of(scene.Parts.begin(), scene.Parts.end(), IsVisible);
    if (!isSeen) return "nothing to show: all of it is transparent";
    const TakenPicture picture = TakePicture(scene, arguments.Picture);
    const std::string file = EncodePng(picture.Pixels);
    const std::array files = {OutputFile{path, file}};
    std::string problem = WriteFiles(files, arguments.Force ? Existing::Replace : Existing::Keep);
    if (!problem.empty()) return problem;
    const auto [width, height] = arguments.Picture.Size;
    std::cout << Printable(path) << ": " << width << " x " << height << " pixels"
              << (picture.IsWhole ? "\n" : "; too much to draw, so what is farthest is left out\n");
    FlushOutput();
    return "";
  };
  const int status = ShowScene(arguments.Paths.front(), {arguments.Tolerance, PictureShareOfRadius}, write);
  return isSeen ? status : StatusNothingLoaded;
}
