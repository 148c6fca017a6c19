#include "scene/Scene.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "text/Figures.h"
#include "text/Notes.h"
#include "text/Text.h"

namespace {

// Whether nodes of a file make many objects of that class.
bool ComesInNumbers(std::string_view className) {
  return className == "brixDot" || className == "CKelPolyline" || className == "CKelPolygon";
}

bool GoTogether(const Part& a, const Part& b) {
  return ComesInNumbers(a.Class) && a.Class == b.Class && a.Name == b.Name && a.Surface == b.Surface &&
         a.Form.TextureCoordinates.empty() && b.Form.TextureCoordinates.empty();
}

// Points that aren't finite give no shape, but may be in the object's own box.
brixBBox FiniteBox(const brixBaseObject& object, const Shape& form) {
  const brixBBox own = object.ComputeBBox();
  if (!own.IsEmpty() && IsFinite(own.GetMinimum()) && IsFinite(own.GetMaximum())) return own;
  brixBBox box;
  for (const brixFloatPoint& point : form.Points) box.Add(point);
  return box;
}

/// Walks the groups of a model.
class SceneMaker {
public:
  SceneMaker(const CKelTextureManager* textures, const Resolution& resolution, Scene& scene)
      : Textures(textures), Fineness(resolution), Made(scene) {}

  SceneGroup Make(const brixBaseGroup& group) {
    SceneGroup made;
    made.Name = ToUtf8(group.GetGroupName().GetText());
    for (int i = 0; i < group.GetNumObjects(); ++i) Add(*group.GetObjectAt(i), made);
    for (int i = 0; i < group.GetNumGroups(); ++i) made.Groups.push_back(Make(*group.GetGroupAt(i)));
    return made;
  }

private:
  void Add(const brixBaseObject& object, SceneGroup& group) {
    const CKelTextureCoordinate* mapping = Textures ? Textures->FindTextureCoordinate(object.GetId()) : nullptr;
    Part part;
    part.Form = MakeShape(object, Fineness, mapping);
    if (part.Form.IsEmpty()) return;
    part.Box = FiniteBox(object, part.Form);
    part.Name = ToUtf8(object.GetObjectName().GetText());
    part.Class = object.GetClassName();
    part.Surface = LookOf(object.GetMatProps().GetFrontMaterial());
    if (!part.Form.TextureCoordinates.empty()) SetTexture(*mapping, part.Surface);
    if (!group.Parts.empty() && GoTogether(Made.Parts[group.Parts.back()], part)) {
      Part& last = Made.Parts[group.Parts.back()];
      Append(part.Form, last.Form);
      last.Box.Add(part.Box);
      ++last.Objects;
      return;
    }
    group.Parts.push_back(Made.Parts.size());
    Made.Parts.push_back(std::move(part));
  }

  void SetTexture(const CKelTextureCoordinate& mapping, Look& look) {
    look.Texture = ImageOf(mapping.GetTextureID());
    look.WrapS = mapping.GetTextureWrapS();
    look.WrapT = mapping.GetTextureWrapT();
  }

  int ImageOf(int textureId) {
    const auto [place, isNew] = Images.try_emplace(textureId, Look::NoTexture);
    if (!isNew) return place->second;
    const CKelTexture* texture = Textures->GetTextureAt(textureId - 1);
    Image image = texture ? MakeImage(*texture) : Image{};
    if (image.Pixels.empty()) return Look::NoTexture;
    place->second = static_cast<int>(Made.Images.size());
    Made.Images.push_back(std::move(image));
    return place->second;
  }

  const CKelTextureManager* Textures;
  Resolution Fineness;
  Scene& Made;
  std::map<int, int> Images;  // by the id of the texture
};

}  // namespace

std::string PartName(const Part& part) {
  constexpr std::size_t Prefix = 4;  // brix or CKel
  return part.Name.empty() ? part.Class.substr(Prefix) : part.Name;
}

Scene MakeScene(const LoadedFile& file, const Resolution& resolution) {
  Scene scene;
  scene.Units = file.Units;
  SceneMaker maker(file.World->GetTextureManager(), Affordable(*file.World, resolution), scene);
  scene.Root = maker.Make(*file.World);
  return scene;
}

std::string WhyNothingToShow(const LoadedFile& file) {
  constexpr std::size_t MostNotes = 3;
  if (!file.Problem.empty()) return file.Problem;
  std::string text = "nothing to show";
  const std::size_t shown = std::min(file.Notes.size(), MostNotes);
  for (std::size_t i = 0; i < shown; ++i) text += (i == 0 ? ": " : "; ") + Sentence(file.Notes[i], file.Path);
  const std::uint64_t others = file.Notes.size() - shown + file.UnlistedNotes;
  return others > 0 ? text + "; and " + Counted(others, "more note") : text;
}
