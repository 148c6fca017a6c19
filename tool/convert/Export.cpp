#include "convert/Export.h"

#include <filesystem>
#include <string_view>
#include <vector>

#include "convert/MadeFile.h"
#include "convert/assimp/AssimpExport.h"
#include "convert/gltf/Gltf.h"

namespace {

void Count(const Scene& scene, const Format& format, Exported& exported) {
  for (const Part& part : scene.Parts) {
    (Holds(format, part.Form) ? exported.Objects : exported.LeftOut) += part.Objects;
    exported.Triangles += part.Form.Triangles.size() / 3;
  }
}

std::vector<MadeFile> MakeFiles(const Scene& scene, const Format& format, const std::string& path) {
  if (format.ExportId) return MakeByAssimp(scene, format, path);
  return format.Ending == std::string_view("glb") ? MakeGlb(scene, path) : MakeGltf(scene, path);
}

}  // namespace

Exported ExportScene(const Scene& scene, const Format& format, const std::string& path, Existing existing) {
  Exported exported;
  Count(scene, format, exported);
  if (exported.Objects == 0) {
    const std::string others = format.HoldsDots ? "lines" : "lines or dots";
    exported.Problem = "nothing in it but " + others + ", which ." + format.Ending + " files don't hold";
    return exported;
  }
  const std::vector<MadeFile> made = MakeFiles(scene, format, path);
  std::vector<OutputFile> files;
  for (const MadeFile& file : made) {
    files.push_back({file.Path, file.Bytes});
    exported.Bytes += file.Bytes.size();
  }
  exported.Problem = WriteFiles(files, existing);
  return exported;
}
