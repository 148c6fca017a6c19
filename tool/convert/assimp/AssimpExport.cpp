#include "convert/assimp/AssimpExport.h"

#include <assimp/cexport.h>

#include <algorithm>
#include <assimp/Exporter.hpp>
#include <stdexcept>

#include "convert/assimp/AssimpScene.h"

namespace {

// Path of a file beside the main one, of whose name the last ending counts.
std::string PathBeside(const std::filesystem::path& path, const aiExportDataBlob& blob) {
  const std::string name = blob.name.C_Str();
  return (path.parent_path() / path.stem()).string() + name.substr(name.rfind('.'));
}

// Files refer to each other by lines of text.
void CheckName(const std::string& name) {
  if (std::any_of(name.begin(), name.end(), [](char c) { return c >= 0 && c < 0x20; })) {
    throw std::runtime_error("can't refer to files whose names have control characters");
  }
}

}  // namespace

std::vector<MadeFile> MakeByAssimp(const Scene& scene, const Format& format, const std::filesystem::path& path) {
  const std::string name = path.filename().string();
  CheckName(name);
  std::vector<MadeFile> files;
  std::vector<std::string> images;
  for (std::size_t i = 0; i < scene.Images.size() && format.HasMaterials; ++i) {
    images.push_back(name + "-" + std::to_string(i + 1) + ".png");
    files.push_back({(path.parent_path() / images.back()).string(), EncodePng(scene.Images[i])});
  }
  const std::unique_ptr<aiScene> made =
      format.HasMaterials ? MakeAssimpScene(scene, images) : MakeSingleMeshScene(scene, format);
  Assimp::ExportProperties properties;
  properties.SetPropertyString(AI_CONFIG_EXPORT_BLOB_NAME, path.stem().string());
  if (format.HoldsDots) properties.SetPropertyBool(AI_CONFIG_EXPORT_POINT_CLOUDS, true);  // a mesh may lack faces
  Assimp::Exporter exporter;
  const aiExportDataBlob* first = exporter.ExportToBlob(made.get(), format.ExportId, 0, &properties);
  if (!first) throw std::runtime_error(std::string("can't be converted: ") + exporter.GetErrorString());
  const auto bytes = [](const aiExportDataBlob& blob) {
    return std::string(static_cast<const char*>(blob.data), blob.size);
  };
  for (const aiExportDataBlob* blob = first->next; blob; blob = blob->next) {
    files.push_back({PathBeside(path, *blob), bytes(*blob)});
  }
  files.push_back({path.string(), bytes(*first)});
  return files;
}
