// From the lists of a scope to the one material of an object.

#include <algorithm>
#include <memory>
#include <new>

#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "qelvrml/scene/CVRMLSeparator.h"
#include "qelvrml/scene/Shininess.h"

namespace {

using qelvrml::DefaultShininess;
using qelvrml::ShininessScale;

constexpr int BothSides = 2;  // mode of a material that both sides share
constexpr brixChroma White(1.0F, 1.0F, 1.0F, 1.0F);
constexpr brixChroma NoVertexColour(0.0F, 0.0F, 0.0F, 1.0F);

using ColourGetter = void (brixMaterial::*)(brixChroma&) const;
using ColourSetter = void (brixMaterial::*)(const brixChroma&);

void SetBoth(brixMatProps& material, ColourSetter set, const brixChroma& colour) {
  (material.GetFrontMaterial().*set)(colour);
  (material.GetBackMaterial().*set)(colour);
}

void SetShininessOfBoth(brixMatProps& material, float shininess) {
  material.GetFrontMaterial().SetShininess(shininess);
  material.GetBackMaterial().SetShininess(shininess);
}

brixMatProps DefaultMaterial() {
  brixMatProps material;
  material.SetMode(BothSides);
  return material;
}

template <class Array>
bool HasElement(const Array& array, int index) {
  return index >= 0 && static_cast<unsigned>(index) < array.GetSize();
}

template <class Array>
auto Element(const Array& array, int index) {
  return array.View()[static_cast<std::size_t>(index)];
}

// The value at `index`, or the first one, or `otherwise` without any.
double ElementOrFirst(const brixDoubleArray& values, int index, double otherwise) {
  if (HasElement(values, index)) return Element(values, index);
  return values.IsEmpty() ? otherwise : Element(values, 0);
}

// The indices of a run list without the counts of its runs.
brixIntArray IndicesOf(const brixIntArray& runs) {
  brixIntArray indices;
  for (const brixRun& run : brixRunList(runs)) {
    for (const int index : run.Indices) indices.Append(index);
  }
  return indices;
}

// The diffuse colour of a material that has only others.
brixChroma SubstituteDiffuse(const brixChromaArray& specular, const brixChromaArray& emissive, int index) {
  if (HasElement(specular, index)) return Element(specular, index);
  return HasElement(emissive, index) ? Element(emissive, index) : White;
}

}  // namespace

brixMatProps CVRMLSeparator::GetMatProps(int index) const {
  brixMatProps material = DefaultMaterial();
  bool found = false;
  const auto take = [&](const brixChromaArray& colours, ColourSetter set) {
    if (!HasElement(colours, index)) return;
    SetBoth(material, set, Element(colours, index));
    found = true;
  };
  take(DiffuseColor, &brixMaterial::SetDiffuse);
  take(SpecularColor, &brixMaterial::SetSpecular);
  take(EmissiveColor, &brixMaterial::SetEmission);
  if (!found) {
    SetBoth(material, &brixMaterial::SetDiffuse, White);
  } else if (DiffuseColor.IsEmpty()) {
    SetBoth(material, &brixMaterial::SetDiffuse, SubstituteDiffuse(SpecularColor, EmissiveColor, index));
  }

  const double transparency = ElementOrFirst(Transparency, index, 0.0);
  const auto applyAlpha = [&](ColourGetter get, ColourSetter set) {
    brixChroma colour;
    (material.GetFrontMaterial().*get)(colour);
    SetBoth(material, set, ApplyTransparency(transparency, colour));
  };
  applyAlpha(&brixMaterial::GetAmbient, &brixMaterial::SetAmbient);
  applyAlpha(&brixMaterial::GetDiffuse, &brixMaterial::SetDiffuse);
  applyAlpha(&brixMaterial::GetSpecular, &brixMaterial::SetSpecular);
  applyAlpha(&brixMaterial::GetEmission, &brixMaterial::SetEmission);

  const double shininess = ElementOrFirst(Shininess, index, DefaultShininess / ShininessScale) * ShininessScale;
  SetShininessOfBoth(material, static_cast<float>(shininess));
  return material;
}

brixMatProps CVRMLSeparator::CreateMatProps(const brixChroma& colour) {
  brixMatProps material = DefaultMaterial();
  SetBoth(material, &brixMaterial::SetDiffuse, colour);
  SetShininessOfBoth(material, static_cast<float>(DefaultShininess));
  return material;
}

brixChroma& CVRMLSeparator::ApplyTransparency(double transparency, brixChroma& colour) {
  colour.SetAlpha(static_cast<float>(1.0 - transparency));
  return colour;
}

brixMatProps CVRMLSeparator::GetPartMaterial(int part, int first, int count) const {
  switch (MaterialBinding) {
    case VRMLBindingPerFace: return GetMatProps(part);
    case VRMLBindingPerFaceIndexed: return GetMatProps(std::max(GetMaterialIndexOfPart(part), 0));
    case VRMLBindingPerVertex:
    case VRMLBindingPerVertexIndexed: return CreateMatProps(GetMeanColour(part, first, count));
    default: return GetMatProps();
  }
}

// Index number `part` of the material indices, counted over all runs; 0 if there is none. The indices are laid out
// without their counts once for each list: as long as the list's storage is shared here, it can't have changed.
int CVRMLSeparator::GetMaterialIndexOfPart(int part) const {
  const auto runs = MaterialIndex.View();
  const auto known = LaidOutRuns.View();
  if (runs.data() != known.data() || runs.size() != known.size()) {
    LaidOutRuns = MaterialIndex;
    LaidOutIndices = IndicesOf(MaterialIndex);
  }
  return HasElement(LaidOutIndices, part) ? Element(LaidOutIndices, part) : 0;
}

brixChroma CVRMLSeparator::GetMeanColour(int part, int first, int count) const {
  const bool indexed = MaterialBinding == VRMLBindingPerVertexIndexed;
  brixChroma sum(0.0F, 0.0F, 0.0F, 0.0F);
  for (int k = 0; k < count; ++k) {
    int index = first - part - 1 + k;
    if (indexed && HasElement(MaterialIndex, first + k)) index = Element(MaterialIndex, first + k);
    index = std::max(index, 0);
    const brixChroma colour = HasElement(DiffuseColor, index) ? Element(DiffuseColor, index) : NoVertexColour;
    sum.red += colour.red;
    sum.green += colour.green;
    sum.blue += colour.blue;
    sum.alpha += colour.alpha;
  }
  const auto divisor = static_cast<float>(count);
  return {sum.red / divisor, sum.green / divisor, sum.blue / divisor, sum.alpha / divisor};
}

bool CVRMLSeparator::HasTexture() {
  return TextureState.GetTextureID() != -1 && !TextureState.GetTextureCoordinates().IsEmpty();
}

bool CVRMLSeparator::ApplyTextureMaterial(brixMatProps& material) {
  if (!HasTexture()) return false;
  SetBoth(material, &brixMaterial::SetDiffuse, White);
  return true;
}

bool CVRMLSeparator::AttachTexture(brixBaseObject* object) {
  bool attached = false;
  CKelTextureManager* manager = object && HasTexture() ? GetTextureManager() : nullptr;
  std::unique_ptr<CKelTextureCoordinate> coordinate(manager ? new (std::nothrow) CKelTextureCoordinate : nullptr);
  if (coordinate) {
    coordinate->SetTextureID(TextureState.GetTextureID());
    coordinate->SetParentGeometryID(static_cast<int>(object->GetId()));
    coordinate->SetCoordinates(TextureState.GetTextureCoordinates());
    coordinate->SetParentGroup(Group);
    coordinate->SetTextureWrapS(TextureState.GetWrapS());
    coordinate->SetTextureWrapT(TextureState.GetWrapT());
    coordinate->SetRotation(TextureState.GetRotation());
    coordinate->GetScale() = {TextureState.GetScale().x, TextureState.GetScale().y};
    attached = manager->RegisterTextureCoordinate(coordinate.get());
    if (attached) coordinate.release();
  }
  ClearTextureCoordinates();
  return attached;
}
