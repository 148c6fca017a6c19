// A page is the frame, which a build makes out of the folder page, with the scene put in: a block of JSON for names,
// looks and images, and a block of base64 for the columns of numbers.

#include "view/Page.h"

#include <filesystem>
#include <map>

#include "Failures.h"
#include "text/Json.h"
#include "text/Notes.h"
#include "text/Text.h"
#include "text/Units.h"
#include "view/Batches.h"
#include "view/Geometry.h"
#include "view/PageColumns.h"
#include "view/PageFrame.h"

namespace {

/// Different values, by number in the order in which they came first.
template <typename Value>
class Numbering {
public:
  std::uint32_t NumberOf(const Value& value) {
    const auto [place, isNew] = Numbers.try_emplace(value, static_cast<std::uint32_t>(Values.size()));
    if (isNew) Values.push_back(value);
    return place->second;
  }
  const std::vector<Value>& GetValues() const { return Values; }

private:
  std::map<Value, std::uint32_t> Numbers;
  std::vector<Value> Values;
};

/// Names, classes and looks of a scene by number, with the columns of parts and groups that refer to them.
class Tables {
public:
  explicit Tables(const Scene& scene) {
    for (const Part& part : scene.Parts) Add(part);
    Add(scene.Root, 0);
  }

  void MoveColumnsTo(PageColumns& columns) {
    columns.Add("partName", std::move(PartName));
    columns.Add("partClass", std::move(PartClass));
    columns.Add("partLook", std::move(PartLook));
    columns.Add("partObjects", std::move(PartObjects));
    columns.Add("groupName", std::move(GroupName));
    columns.Add("groupDepth", std::move(GroupDepth));
    columns.Add("groupParts", std::move(GroupParts));
  }

  Numbering<std::string> Names;
  Numbering<std::string> Classes;
  Numbering<Look> Looks;

private:
  void Add(const Part& part) {
    PartName.push_back(Names.NumberOf(part.Name));
    PartClass.push_back(Classes.NumberOf(part.Class));
    PartLook.push_back(Looks.NumberOf(part.Surface));
    PartObjects.push_back(static_cast<std::uint32_t>(part.Objects));
  }

  // Groups stand in the order of their parts; those that have nothing to show are left out.
  bool Add(const SceneGroup& group, std::uint32_t depth) {
    const std::size_t place = GroupName.size();
    GroupName.push_back(Names.NumberOf(group.Name));
    GroupDepth.push_back(depth);
    GroupParts.push_back(static_cast<std::uint32_t>(group.Parts.size()));
    bool shows = !group.Parts.empty();
    for (const SceneGroup& inner : group.Groups) shows = Add(inner, depth + 1) || shows;
    if (!shows) {
      for (PageColumns::Column* column : {&GroupName, &GroupDepth, &GroupParts}) column->resize(place);
    }
    return shows;
  }

  PageColumns::Column PartName, PartClass, PartLook, PartObjects;
  PageColumns::Column GroupName, GroupDepth, GroupParts;
};

Json ColourToJson(const std::array<float, 3>& colour) {
  return {Shortest(colour[0]), Shortest(colour[1]), Shortest(colour[2])};
}

Json LookToJson(const Look& look) {
  Json object = {{"diffuse", ColourToJson(look.Diffuse)},   {"specular", ColourToJson(look.Specular)},
                 {"emission", ColourToJson(look.Emission)}, {"line", ColourToJson(LineColour(look))},
                 {"opacity", Shortest(look.Opacity)},       {"shininess", Shortest(look.Shininess)}};
  if (look.Texture != Look::NoTexture) object["image"] = look.Texture;
  return object;
}

bool IsGrey(const Image& image) {
  for (std::size_t i = 0; i + 2 < image.Pixels.size(); i += 4) {
    if (image.Pixels[i] != image.Pixels[i + 1] || image.Pixels[i] != image.Pixels[i + 2]) return false;
  }
  return true;
}

Json ImageToJson(const Image& image) {
  return {{"file", std::filesystem::path(image.File).filename().string()},
          {"width", image.Width},
          {"height", image.Height},
          {"grey", IsGrey(image)},
          {"data", "data:image/png;base64," + Base64(EncodePng(image))}};
}

Json BatchToJson(const Batch& batch) {
  const BatchKind& kind = batch.Kind;
  constexpr std::array Names = {"triangles", "segments", "dots"};
  Json object = {{"kind", Names.at(static_cast<std::size_t>(kind.Kind))},
                 {"smooth", kind.Smooth},
                 {"transparent", kind.Transparent}};
  if (kind.Texture == Look::NoTexture) return object;
  object["image"] = kind.Texture;
  object["repeatS"] = kind.WrapS == TextureWrapRepeat;
  object["repeatT"] = kind.WrapT == TextureWrapRepeat;
  return object;
}

Json NotesToJson(const LoadedFile& file) {
  Json notes = Json::array();
  for (const CVRMLNote& note : file.Notes) notes.push_back(Sentence(note, file.Path));
  return notes;
}

template <typename Value, typename Convert>
Json ListToJson(const std::vector<Value>& values, Convert convert) {
  Json list = Json::array();
  for (const Value& value : values) list.push_back(convert(value));
  return list;
}

Json SceneToJson(const LoadedFile& file, const Scene& scene, const Tables& tables, const std::vector<Batch>& batches) {
  return {{"file", Printable(std::filesystem::path(file.Path).filename().string())},
          {"unit", UnitsSymbol(scene.Units)},
          {"unitMeaning", UnitsMeaning(scene.Units)},
          {"notes", NotesToJson(file)},
          {"unlistedNotes", file.UnlistedNotes},
          {"names", tables.Names.GetValues()},
          {"classes", tables.Classes.GetValues()},
          {"looks", ListToJson(tables.Looks.GetValues(), LookToJson)},
          {"images", ListToJson(scene.Images, ImageToJson)},
          {"batches", ListToJson(batches, BatchToJson)}};
}

// JSON as it can stand in a script element, whose text only ends at a "<".
std::string ScriptText(const Json& json) {
  std::string text;
  for (const char c : json.dump(-1, ' ', true)) {
    if (c == '<') {
      text += "\\u003c";
    } else {
      text += c;
    }
  }
  return text;
}

std::string Block(const std::string& type, const std::string& name, const std::string& text) {
  return "<script type=\"" + type + "\" id=\"" + name + "\">" + text + "</script>\n";
}

}  // namespace

std::string MakePage(const LoadedFile& file, const Scene& scene) {
  const EndWhenOutOfMemory guard;
  const std::vector<Batch> batches = MakeBatches(scene);
  Tables tables(scene);
  PageColumns columns;
  tables.MoveColumnsTo(columns);
  const brixFloatPoint origin = OriginOf(scene);
  AddGeometry(scene, batches, origin, columns);
  Json json = SceneToJson(file, scene, tables, batches);
  json["origin"] = {Shortest(origin.x), Shortest(origin.y), Shortest(origin.z)};
  json["columns"] = Json::array();
  for (const auto& [name, length] : columns.Lengths()) json["columns"].push_back({name, length});
  return PageStart() + Block("application/json", "scene", ScriptText(json)) +
         Block("application/octet-stream", "columns", columns.Text()) + PageEnd();
}
