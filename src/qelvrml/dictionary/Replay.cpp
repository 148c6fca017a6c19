// Replay: running the define operation of an entry again.

#include <array>

#include "qelvrml/dictionary/CVRMLDictionaryGeometry.h"
#include "qelvrml/dictionary/CVRMLDictionaryProperties.h"
#include "qelvrml/dictionary/CVRMLDictionaryProtoUse.h"
#include "qelvrml/dictionary/CVRMLDictionarySeparator.h"
#include "qelvrml/dictionary/CVRMLDictionarySolids.h"
#include "qelvrml/dictionary/CVRMLDictionaryTextures.h"
#include "qelvrml/dictionary/CVRMLDictionaryTransforms.h"
#include "qelvrml/dictionary/CVRMLDictionaryUse.h"
#include "qelvrml/foundation/ScopedValue.h"
#include "qelvrml/parser/load/LoadState.h"
#include "qelvrml/parser/load/ParserInternals.h"

namespace {

// A new scope, everything that was recorded in the old one, and the end of the scope.
bool Replay(CVRMLParser& parser, CVRMLDictionarySeparator& entry) {
  const qelvrml::ScopedValue<CBasicString> name(parser.GetEntityName(), entry.GetName());
  bool result = parser.DefineSeparator();
  if (!result) return false;
  CKelList& children = entry.GetChildren();
  for (CBasicListElement* child = children.GoToFirst(); child; child = child->Next) {
    result = parser.ServiceDictionaryObject(static_cast<CVRMLDictionaryEntry*>(child->Data)) && result;
  }
  parser.PopSeparator();
  return result;
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryUse& use) { return parser.DefineUse(use.GetName()); }

bool Replay(CVRMLParser& parser, CVRMLDictionaryCube& cube) {
  return parser.DefineCube(cube.GetWidth(), cube.GetHeight(), cube.GetDepth());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryCone& cone) {
  return parser.DefineCone(cone.GetBottomRadius(), cone.GetHeight(), cone.GetSide(), cone.GetBottom());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryCylinder& cylinder) {
  return parser.DefineCylinder(cylinder.GetRadius(), cylinder.GetHeight());
}

bool Replay(CVRMLParser& parser, CVRMLDictionarySphere& sphere) { return parser.DefineSphere(sphere.GetRadius()); }

bool Replay(CVRMLParser& parser, CVRMLDictionaryIndexedSet& set) {
  return parser.DefineIndexedSet(set.GetIsFaceSet(), set.GetCoordIndex(), set.GetMaterialIndex(), set.GetNormalIndex());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryPointSet& set) {
  return parser.DefinePointSet(set.GetStartIndex(), set.GetNumPoints());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryTriangleStripSet& set) {
  return parser.DefineTriangleStripSet(set.GetNumVertices());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryElevationGrid& grid) {
  return parser.DefineElevationGrid(grid.GetSolid(), grid.GetHeight(), grid.GetXDimension(), grid.GetXSpacing(),
                                    grid.GetZDimension(), grid.GetZSpacing());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryExtrusion& sweep) {
  return parser.DefineExtrusion(sweep.GetSolid(), sweep.GetBeginCap(), sweep.GetEndCap(), sweep.GetOrientationAxes(),
                                sweep.GetOrientationAngles(), sweep.GetScale(), sweep.GetCrossSection(),
                                sweep.GetSpine());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryMaterial& material) {
  return parser.DefineMaterial(material.GetAmbientColor(), material.GetDiffuseColor(), material.GetSpecularColor(),
                               material.GetEmissiveColor(), material.GetShininess(), material.GetTransparency());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryBinding& binding) {
  const bool isMaterial = binding.GetType() == DictionaryEntryMaterialBinding;
  return parser.DefineBinding(isMaterial, binding.GetBinding());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryCoordinate& coordinate) {
  return parser.DefineCoordinate3(coordinate.GetPoints());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryNormal& normal) { return parser.DefineNormal(normal.GetVectors()); }

bool Replay(CVRMLParser& parser, CVRMLDictionaryTransform& transform) {
  return parser.DefineTransform(transform.GetTranslation(), transform.GetScaleFactor(), transform.GetRotation(),
                                transform.GetScaleOrientation(), transform.GetCenter());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryMatrix& matrix) {
  return parser.DefineMatrixTransform(matrix.GetMatrix());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryRotation& rotation) {
  return parser.DefineRotation(rotation.GetMatrix());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryScale& scale) { return parser.DefineScale(scale.GetScaleFactor()); }

bool Replay(CVRMLParser& parser, CVRMLDictionaryTranslation& translation) {
  return parser.DefineTranslation(translation.GetTranslation());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryTexture& texture) {
  return parser.DefineTexture(texture.GetTextureID(), texture.GetWrapS(), texture.GetWrapT());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryTextureCoordinates& coordinates) {
  return parser.DefineTextureCoordinate(coordinates.GetPoints());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryTextureTransform& transform) {
  return parser.DefineTextureTransform(transform.GetCenter(), transform.GetScale(), transform.GetTranslation(),
                                       transform.GetRotation());
}

bool Replay(CVRMLParser& parser, CVRMLDictionaryProtoUse& instance) {
  return parser.DefineProtoUse(instance.GetPrototypeName(), instance.GetFieldText(), instance.GetFieldTextLength());
}

// By the type of the entry; what a define operation makes it takes from the load's budget itself.
using ReplayOperation = bool (*)(CVRMLParser&, CVRMLDictionaryEntry&);

template <class Entry>
bool ReplayAs(CVRMLParser& parser, CVRMLDictionaryEntry& entry) {
  return Replay(parser, static_cast<Entry&>(entry));
}

constexpr std::array<ReplayOperation, DictionaryEntryTextureTransform + 1> Replays = [] {
  std::array<ReplayOperation, DictionaryEntryTextureTransform + 1> table{};
  table[DictionaryEntrySeparator] = ReplayAs<CVRMLDictionarySeparator>;
  table[DictionaryEntryCube] = ReplayAs<CVRMLDictionaryCube>;
  table[DictionaryEntryCone] = ReplayAs<CVRMLDictionaryCone>;
  table[DictionaryEntryCylinder] = ReplayAs<CVRMLDictionaryCylinder>;
  table[DictionaryEntrySphere] = ReplayAs<CVRMLDictionarySphere>;
  table[DictionaryEntryIndexedSet] = ReplayAs<CVRMLDictionaryIndexedSet>;
  table[DictionaryEntryPointSet] = ReplayAs<CVRMLDictionaryPointSet>;
  table[DictionaryEntryMaterial] = ReplayAs<CVRMLDictionaryMaterial>;
  table[DictionaryEntryMaterialBinding] = ReplayAs<CVRMLDictionaryBinding>;
  table[DictionaryEntryCoordinate] = ReplayAs<CVRMLDictionaryCoordinate>;
  table[DictionaryEntryNormal] = ReplayAs<CVRMLDictionaryNormal>;
  table[DictionaryEntryNormalBinding] = ReplayAs<CVRMLDictionaryBinding>;
  table[DictionaryEntryTransform] = ReplayAs<CVRMLDictionaryTransform>;
  table[DictionaryEntryMatrix] = ReplayAs<CVRMLDictionaryMatrix>;
  table[DictionaryEntryRotation] = ReplayAs<CVRMLDictionaryRotation>;
  table[DictionaryEntryScale] = ReplayAs<CVRMLDictionaryScale>;
  table[DictionaryEntryTranslation] = ReplayAs<CVRMLDictionaryTranslation>;
  table[DictionaryEntryUse] = ReplayAs<CVRMLDictionaryUse>;
  table[DictionaryEntryElevationGrid] = ReplayAs<CVRMLDictionaryElevationGrid>;
  table[DictionaryEntryExtrusion] = ReplayAs<CVRMLDictionaryExtrusion>;
  table[DictionaryEntryProtoUse] = ReplayAs<CVRMLDictionaryProtoUse>;
  table[DictionaryEntryTriangleStripSet] = ReplayAs<CVRMLDictionaryTriangleStripSet>;
  table[DictionaryEntryTexture] = ReplayAs<CVRMLDictionaryTexture>;
  table[DictionaryEntryTextureCoordinates] = ReplayAs<CVRMLDictionaryTextureCoordinates>;
  table[DictionaryEntryTextureTransform] = ReplayAs<CVRMLDictionaryTextureTransform>;
  return table;
}();

/// Marks an entry as being replayed for the life of this object.
class ReplayMark {
public:
  explicit ReplayMark(CVRMLDictionaryEntry& entry) : Entry(entry) { Entry.SetReplaying(true); }
  ReplayMark(const ReplayMark&) = delete;
  ReplayMark& operator=(const ReplayMark&) = delete;
  ~ReplayMark() { Entry.SetReplaying(false); }

private:
  CVRMLDictionaryEntry& Entry;
};

ReplayOperation FindReplay(int type) {
  return type >= 0 && static_cast<std::size_t>(type) < Replays.size() ? Replays[static_cast<std::size_t>(type)]
                                                                      : nullptr;
}

}  // namespace

bool CVRMLParser::ServiceDictionaryObject(CVRMLDictionaryEntry* entry) {
  if (SkippingBlock || !entry) return false;
  if (entry->IsReplaying()) return true;  // a name that is used in its own definition
  const qelvrml::LoadRun run(*this);
  const ReplayOperation replay = FindReplay(entry->GetType());
  if (!replay || !qelvrml::CanMake(*this, {.Replays = 1})) return false;
  const qelvrml::ScopedValue<bool> update(AllowDictionaryUpdate, false);
  const ReplayMark mark(*entry);
  return replay(*this, *entry);
}
