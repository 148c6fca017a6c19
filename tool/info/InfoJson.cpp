#include "info/InfoJson.h"

#include <iostream>
#include <string>

#include "Failures.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "text/Json.h"
#include "text/Text.h"
#include "text/Units.h"

namespace {

Json SizeToJson(const brixBBox& box) {
  if (box.IsEmpty()) return nullptr;
  const brixFloatPoint& from = box.GetMinimum();
  const brixFloatPoint& to = box.GetMaximum();
  return {Shortest(to.x - from.x), Shortest(to.y - from.y), Shortest(to.z - from.z)};
}

Json ClassesToJson(const Census& census) {
  Json classes = Json::object();
  for (const auto& [name, count] : census.Classes) classes[std::string(name)] = count;
  return classes;
}

Json TextureFilesToJson(const CKelTextureManager* textures) {
  Json list = Json::array();
  for (int i = 0; textures && i < textures->GetNumberTextures(); ++i) {
    const CKelTexture& texture = *textures->GetTextureAt(i);
    list.push_back(
        {{"file", ToUtf8(texture.GetFilename())}, {"width", texture.GetWidth()}, {"height", texture.GetHeight()}});
  }
  return list;
}

Json InfoToJson(const LoadedFile& file, const Census& census) {
  Json object = {{"file", ToUtf8(CBasicString(file.Path.c_str()))}, {"result", ResultName(file.Result)}};
  if (!file.Problem.empty()) object["problem"] = file.Problem;
  object["units"] = UnitsName(file.Units);
  object["warning"] = file.Warning;
  object["size"] = SizeToJson(file.World->GetBBox());
  object["groups"] = census.Groups;
  object["objects"] = census.Objects;
  object["classes"] = ClassesToJson(census);
  object["points"] = census.Points;
  object["faces"] = census.Faces;
  object["triangles"] = census.Triangles;
  object["textures"] = TextureFilesToJson(file.World->GetTextureManager());
  object["texturedObjects"] = census.Textured;
  AddNotes(file, object);
  object["seconds"] = file.Seconds;
  return object;
}

}  // namespace

void PrintInfoJson(const LoadedFile& file, const Census& census) {
  const EndWhenOutOfMemory guard;
  std::cout << InfoToJson(file, census) << '\n';
}

void JsonListing::Add(const LoadedFile& file, const Census& census) {
  const EndWhenOutOfMemory guard;
  std::cout << Before << '\n' << InfoToJson(file, census);
  Before = ",";
}

void JsonListing::End(const Total& total) {
  const EndWhenOutOfMemory guard;
  const bool none = total.Files == 0;
  const Json object = {
      {"files", total.Files},     {"loaded", total.Loaded},       {"failed", total.Files - total.Loaded},
      {"objects", total.Objects}, {"triangles", total.Triangles}, {"seconds", total.Seconds}};
  std::cout << (none ? Before : "") << "\n],\"total\":" << object << "}\n";
}
