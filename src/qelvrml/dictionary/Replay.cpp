// Replay: running the define operation of an entry again.

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/CVRMLDictionaryProperties.h"
#include "qelvrml/dictionary/CVRMLDictionaryProtoUse.h"
#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"
#include "qelvrml/dictionary/CVRMLDictionarySolids.h"
#include "qelvrml/dictionary/CVRMLDictionaryTextures.h"
#include "qelvrml/dictionary/CVRMLDictionaryTransforms.h"
#include "qelvrml/foundation/CutToInt.h"
#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/parser/Limits.h"

bool CVRMLParser::ServiceDictionaryObject(CVRMLDictionaryEntry* entry) {
  if (SkippingBlock || !entry) return false;
  if (entry->Replaying) return true;  // a name that is used in its own definition
  if (!SpendReplayCost(qelvrml::EntryReplayCost + CountCopies(*entry))) return false;
  const qelvrml::ScopedValue<bool> replaying(entry->Replaying, true);
  const qelvrml::ScopedValue<bool> update(AllowDictionaryUpdate, false);
  return ReplayEntry(*entry);
}

// Takes what a replay or an expansion costs from what this load may spend; false if that isn't enough.
bool CVRMLParser::SpendReplayCost(std::uint64_t cost) {
  if (cost > qelvrml::MaximumReplayCost - ReplayCost) return false;
  ReplayCost += cost;
  return true;
}

// Points and indices that a replay copies.
std::uint64_t CVRMLParser::CountCopies(CVRMLDictionaryEntry& entry) const {
  switch (entry.GetType()) {
    case DictionaryEntryIndexedSet:
      return std::uint64_t{2} * static_cast<CVRMLDictionaryIndexedSet&>(entry).GetCoordIndex().GetSize();
    case DictionaryEntryPointSet:
      return static_cast<std::uint64_t>(static_cast<CVRMLDictionaryPointSet&>(entry).GetNumPoints());
    case DictionaryEntryTriangleStripSet:  // takes all coordinates in force
      return CurrentSeparator ? CurrentSeparator->GetVertices().GetSize() : 0;
    case DictionaryEntryElevationGrid: {
      auto& grid = static_cast<CVRMLDictionaryElevationGrid&>(entry);
      return static_cast<std::uint64_t>(qelvrml::CutToInt(grid.GetXDimension())) *
             static_cast<std::uint64_t>(qelvrml::CutToInt(grid.GetZDimension()));
    }
    case DictionaryEntryExtrusion: {
      auto& extrusion = static_cast<CVRMLDictionaryExtrusion&>(entry);
      return std::uint64_t{extrusion.GetSpine().GetSize()} * extrusion.GetCrossSection().GetSize() / 2;
    }
    default: return 0;
  }
}

bool CVRMLParser::ReplayEntry(CVRMLDictionaryEntry& entry) {
  switch (entry.GetType()) {
    case DictionaryEntrySeparator: return ReplaySeparator(static_cast<CVRMLDictionarySeparator&>(entry));
    case DictionaryEntryCube: {
      const auto& cube = static_cast<CVRMLDictionaryCube&>(entry);
      return DefineCube(cube.GetWidth(), cube.GetHeight(), cube.GetDepth());
    }
    case DictionaryEntryCone: {
      const auto& cone = static_cast<CVRMLDictionaryCone&>(entry);
      return DefineCone(cone.GetBottomRadius(), cone.GetHeight(), cone.GetSide(), cone.GetBottom());
    }
    case DictionaryEntryCylinder: {
      const auto& cylinder = static_cast<CVRMLDictionaryCylinder&>(entry);
      return DefineCylinder(cylinder.GetRadius(), cylinder.GetHeight());
    }
    case DictionaryEntrySphere: return DefineSphere(static_cast<CVRMLDictionarySphere&>(entry).GetRadius());
    case DictionaryEntryIndexedSet: {
      auto& set = static_cast<CVRMLDictionaryIndexedSet&>(entry);
      return DefineIndexedSet(set.GetIsFaceSet(), set.GetCoordIndex(), set.GetMaterialIndex(), set.GetNormalIndex());
    }
    case DictionaryEntryMaterial: {
      auto& material = static_cast<CVRMLDictionaryMaterial&>(entry);
      return DefineMaterial(material.GetAmbientColor(), material.GetDiffuseColor(), material.GetSpecularColor(),
                            material.GetEmissiveColor(), material.GetShininess(), material.GetTransparency());
    }
    case DictionaryEntryMaterialBinding:
      return DefineBinding(true, static_cast<CVRMLDictionaryBinding&>(entry).GetBinding());
    case DictionaryEntryCoordinate:
      return DefineCoordinate3(static_cast<CVRMLDictionaryCoordinate&>(entry).GetPoints());
    case DictionaryEntryNormal: return DefineNormal(static_cast<CVRMLDictionaryNormal&>(entry).GetVectors());
    case DictionaryEntryNormalBinding:
      return DefineBinding(false, static_cast<CVRMLDictionaryBinding&>(entry).GetBinding());
    case DictionaryEntryTransform: {
      auto& transform = static_cast<CVRMLDictionaryTransform&>(entry);
      return DefineTransform(transform.GetTranslation(), transform.GetScaleFactor(), transform.GetRotation(),
                             transform.GetScaleOrientation(), transform.GetCenter());
    }
    case DictionaryEntryMatrix: return DefineMatrixTransform(static_cast<CVRMLDictionaryMatrix&>(entry).GetMatrix());
    case DictionaryEntryRotation: return DefineRotation(static_cast<CVRMLDictionaryRotation&>(entry).GetMatrix());
    case DictionaryEntryScale: return DefineScale(static_cast<CVRMLDictionaryScale&>(entry).GetScaleFactor());
    case DictionaryEntryTranslation:
      return DefineTranslation(static_cast<CVRMLDictionaryTranslation&>(entry).GetTranslation());
    case DictionaryEntryUse: return DefineUse(entry.GetName());
    case DictionaryEntryPointSet: {
      const auto& set = static_cast<CVRMLDictionaryPointSet&>(entry);
      return DefinePointSet(set.GetStartIndex(), set.GetNumPoints());
    }
    case DictionaryEntryTriangleStripSet:
      return DefineTriangleStripSet(static_cast<CVRMLDictionaryTriangleStripSet&>(entry).GetNumVertices());
    case DictionaryEntryElevationGrid: {
      auto& grid = static_cast<CVRMLDictionaryElevationGrid&>(entry);
      return DefineElevationGrid(grid.GetSolid(), grid.GetHeight(), grid.GetXDimension(), grid.GetXSpacing(),
                                 grid.GetZDimension(), grid.GetZSpacing());
    }
    case DictionaryEntryExtrusion: {
      auto& sweep = static_cast<CVRMLDictionaryExtrusion&>(entry);
      return DefineExtrusion(sweep.GetSolid(), sweep.GetBeginCap(), sweep.GetEndCap(), sweep.GetOrientationAxes(),
                             sweep.GetOrientationAngles(), sweep.GetScale(), sweep.GetCrossSection(), sweep.GetSpine());
    }
    case DictionaryEntryTexture: {
      const auto& texture = static_cast<CVRMLDictionaryTexture&>(entry);
      return DefineTexture(texture.GetTextureID(), texture.GetWrapS(), texture.GetWrapT());
    }
    case DictionaryEntryTextureCoordinates:
      return DefineTextureCoordinate(static_cast<CVRMLDictionaryTextureCoordinates&>(entry).GetPoints());
    case DictionaryEntryTextureTransform: {
      auto& transform = static_cast<CVRMLDictionaryTextureTransform&>(entry);
      return DefineTextureTransform(transform.GetCenter(), transform.GetScale(), transform.GetTranslation(),
                                    transform.GetRotation());
    }
    case DictionaryEntryProtoUse: {
      const auto& instance = static_cast<CVRMLDictionaryProtoUse&>(entry);
      return DefineProtoUse(instance.GetPrototypeName(), instance.GetFieldText(), instance.GetFieldTextLength());
    }
    default: return false;
  }
}

bool CVRMLParser::ReplaySeparator(CVRMLDictionarySeparator& entry) {
  const qelvrml::ScopedValue<CBasicString> name(EntityName, entry.GetName());
  bool result = DefineSeparator();
  if (!result) return false;
  CKelList& children = entry.GetChildren();
  for (CBasicListElement* child = children.GoToFirst(); child; child = child->Next) {
    result = ServiceDictionaryObject(static_cast<CVRMLDictionaryEntry*>(child->Data)) && result;
  }
  PopSeparator();
  return result;
}
