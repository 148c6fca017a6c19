// Lists the textures of a scene and how they lie on its objects, and writes each texture as a PPM picture. A callback
// finds the images: beside the scene, or in one of the folders that the command line names.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/CKelWorld.h"

namespace {

namespace fs = std::filesystem;

// The callback is a plain function, so what it needs to know is global.
std::vector<fs::path> imageFolders;

// Called for each image that a scene refers to. A result other than 0 means that `path` is good.
int FindImage(CBasicString scene, CBasicString wanted, CBasicString& path) {
  const char* name = wanted.GetNarrowText();
  const char* from = scene.GetNarrowText();
  if (!name || !from) return 0;
  std::vector<fs::path> folders = {fs::path(from).parent_path()};
  folders.insert(folders.end(), imageFolders.begin(), imageFolders.end());
  for (const fs::path& folder : folders) {
    // A scene may name any path: only its last component counts.
    const fs::path candidate = folder / fs::path(name).filename();
    if (!fs::is_regular_file(candidate)) continue;
    path = candidate.c_str();
    return 1;
  }
  return 0;
}

std::string Text(const CBasicString& text, const char* ifEmpty) {
  const char* narrow = text.GetNarrowText();
  return narrow && *narrow ? narrow : ifEmpty;
}

// Pixels stand in the order of the file: an image has its upper row first, a PixelTexture its lower one.
bool WritePicture(const CKelTexture& texture, const fs::path& path) {
  std::ofstream file(path, std::ios::binary);
  file << "P6 " << texture.GetWidth() << ' ' << texture.GetHeight() << " 255\n";
  for (int i = 0; i < texture.GetWidth() * texture.GetHeight(); ++i) {
    const SKelTexturePixel& pixel = texture.GetPixelArray()[i];
    file << pixel.Red << pixel.Green << pixel.Blue;
  }
  return static_cast<bool>(file.flush());
}

const char* WrapName(TextureWrapTypes wrap) { return wrap == TextureWrapRepeat ? "repeated" : "clamped"; }

void ListObjects(const brixBaseGroup& group, const CKelTextureManager& textures) {
  for (int i = 0; i < group.GetNumObjects(); ++i) {
    const brixBaseObject& object = *group.GetObjectAt(i);
    const CKelTextureCoordinate* lying = textures.FindTextureCoordinate(object.GetId());
    if (!lying) continue;
    const std::string name = Text(CBasicString(group.GetGroupName().GetText()), "(unnamed)");
    std::cout << object.GetClassName() << " in group " << name << ": texture " << lying->GetTextureID() << ", "
              << WrapName(lying->GetTextureWrapS()) << " in s, " << WrapName(lying->GetTextureWrapT()) << " in t,";
    for (const brix2DFloatPoint& point : lying->GetCoordinates().View()) std::cout << ' ' << point.x << '/' << point.y;
    std::cout << '\n';
  }
  for (int i = 0; i < group.GetNumGroups(); ++i) ListObjects(*group.GetGroupAt(i), textures);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "usage: textures FILE FOLDER-FOR-PICTURES [FOLDER-WITH-IMAGES...]\n";
    return 64;
  }
  imageFolders.assign(argv + 3, argv + argc);
  CKelWorld world;
  CVRMLParser parser;
  parser.SetGetSupportFilePtr(FindImage);
  const VRMLLoadResultTypes result = parser.Parse(&world, argv[1]);
  if (result != VRMLLoadOK && result != VRMLLoadWarnings) return static_cast<int>(result);

  const CKelTextureManager& textures = *world.GetTextureManager();
  for (int i = 0; i < textures.GetNumberTextures(); ++i) {
    const CKelTexture& texture = *textures.GetTextureAt(i);
    const std::string name = "texture-" + std::to_string(texture.GetTextureID()) + ".ppm";
    if (!WritePicture(texture, fs::path(argv[2]) / name)) return 74;
    std::cout << name << ": " << texture.GetWidth() << " x " << texture.GetHeight() << ", "
              << Text(texture.GetFilename(), "pixels of the scene") << '\n';
  }
  ListObjects(world, textures);
  return 0;
}
