#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/parser/VRMLBindingTypes.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/brixMaterial.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"
#include "qelvrml/platform/brix/groups/brixBaseGroup.h"
#include "qelvrml/scene/CVRMLTextureState.h"

class CKelTextureManager;
class CVRMLDictionaryEntry;
class CVRMLParser;

/// Everything that is in force at one place of a scene.
///
/// The records form a stack in CVRMLParser: opening a scope copies the enclosing record, closing it drops the copy.
/// Property nodes write into the top record, geometry nodes read from it. The arrays share their storage with the
/// enclosing record's until one of them is written, so that a scope opens at the same cost however many coordinates are
/// in force.
class QELVRML_EXPORT CVRMLSeparator {
public:
  CVRMLSeparator() { Initialize(); }
  CVRMLSeparator(const CVRMLSeparator&) = delete;
  ~CVRMLSeparator() = default;

  /// Sets the defaults.
  void Initialize();
  /// Takes over the state of an enclosing scope: its group, which is shared, and all that a scope inherits. The entry,
  /// the parser and the waiting texture coordinates are not inherited.
  CVRMLSeparator& operator=(const CVRMLSeparator& parent);

  /// Where objects of this scope go: the world or a group. A created group belongs to this record until PopSeparator
  /// hands it on.
  brixBaseGroup* GetGroup() const { return Group; }
  void SetGroup(brixBaseGroup* group) { Group = group; }
  bool GetCreatedGroup() const { return CreatedGroup; }
  void SetCreatedGroup(bool created) { CreatedGroup = created; }

  /// Accumulated transformation from this scope's coordinates to world coordinates; points are row vectors.
  brixMatrix4x4& GetTransformation() { return Transformation; }
  void SetTransformation(const brixMatrix4x4& matrix) { Transformation = matrix; }
  /// Puts `matrix` in front of the transformation, so that it acts first on the points of this scope.
  void MultiplyTransformation(const brixMatrix4x4& matrix);
  void Translate(const brixFloatPoint& by);
  void Scale(const brixFloatPoint& by);
  void Rotate(const brixMatrix4x4& matrix) { MultiplyTransformation(matrix); }
  /// Brings each point to world coordinates.
  void TransformPoints(brixFloatPointArray& points) const;

  brixFloatPointArray& GetVertices() { return Vertices; }
  void SetVertices(const brixFloatPointArray& points) { Vertices = points; }
  void ClearVertices() { Vertices = {}; }
  brixVectorArray& GetNormals() { return Normals; }
  void SetNormals(const brixVectorArray& normals) { Normals = normals; }
  void ClearNormals() { Normals = {}; }
  /// Run lists of the indexed set at hand: for each run a count and that many indices.
  brixIntArray& GetVertexIndex() { return VertexIndex; }
  void SetVertexIndex(const brixIntArray& runs) { VertexIndex = runs; }
  void ClearVertexIndex() { VertexIndex = {}; }
  brixIntArray& GetNormalIndex() { return NormalIndex; }
  void SetNormalIndex(const brixIntArray& runs) { NormalIndex = runs; }
  void ClearNormalIndex() { NormalIndex = {}; }
  brixIntArray& GetMaterialIndex() { return MaterialIndex; }
  void SetMaterialIndex(const brixIntArray& runs) { MaterialIndex = runs; }
  void ClearMaterialIndex() { MaterialIndex = {}; }

  VRMLBindingTypes GetMaterialBinding() const { return MaterialBinding; }
  void SetMaterialBinding(VRMLBindingTypes binding) { MaterialBinding = binding; }
  /// Inherited like the material binding; nothing here reads it, for the model computes its normals.
  VRMLBindingTypes GetNormalBinding() const { return NormalBinding; }
  void SetNormalBinding(VRMLBindingTypes binding) { NormalBinding = binding; }

  /// Ambient colours are kept and inherited for hosts; no material of an object takes them.
  brixChromaArray& GetAmbientColor() { return AmbientColor; }
  void SetAmbientColor(const brixChromaArray& colours) { AmbientColor = colours; }
  brixChromaArray& GetDiffuseColor() { return DiffuseColor; }
  void SetDiffuseColor(const brixChromaArray& colours) { DiffuseColor = colours; }
  brixChromaArray& GetSpecularColor() { return SpecularColor; }
  void SetSpecularColor(const brixChromaArray& colours) { SpecularColor = colours; }
  brixChromaArray& GetEmissiveColor() { return EmissiveColor; }
  void SetEmissiveColor(const brixChromaArray& colours) { EmissiveColor = colours; }
  /// Shininess from 0 to 1.
  brixDoubleArray& GetShininess() { return Shininess; }
  void SetShininess(const brixDoubleArray& values) { Shininess = values; }
  /// One value for all; above 1.0 it is taken for the scale from 0 to 128.
  void SetShininess(double value);
  /// Transparency from 0, opaque, to 1.
  brixDoubleArray& GetTransparency() { return Transparency; }
  void SetTransparency(const brixDoubleArray& values) { Transparency = values; }
  void SetTransparency(double value);

  /// The separator entry that this scope's content is recorded into; null for none; not owned.
  CVRMLDictionaryEntry* GetDictionaryEntry() const { return DictionaryEntry; }
  void SetDictionaryEntry(CVRMLDictionaryEntry* entry) { DictionaryEntry = entry; }
  CVRMLParser* GetParser() const { return Parser; }
  void SetParser(CVRMLParser* parser) { Parser = parser; }
  CVRMLTextureState& GetTextureState() { return TextureState; }
  void SetTextureState(const CVRMLTextureState& state) { TextureState = state; }
  void ClearTextureCoordinates() { TextureState.SetTextureCoordinates({}); }
  /// Null without a parser, or when its world has none.
  CKelTextureManager* GetTextureManager() const;

  /// Drops the points that no index names and rewrites the indices. True if anything was removed. Indices outside the
  /// points are left alone.
  static bool CompactVertices(brixFloatPointArray& points, brixIntArray& runs);

  // Adding an object to the group, which owns it from then on: with the material of the first list position, of the
  // given one, or of a part of an indexed set whose `count` vertices start at position `first` of the run list. False,
  // and the object stays with the caller, without a group or an object.
  bool AddObject(brixBaseObject* object);
  bool AddObject(brixBaseObject* object, int index);
  bool AddObject(brixBaseObject* object, int part, int first, int count);
  bool AddObject(brixBaseObject* object, const brixMatProps& material);

  /// The material of a list position: a position behind the end of the diffuse list is white, transparency and
  /// shininess fall back to their first values.
  brixMatProps GetMatProps(int index) const;
  brixMatProps GetMatProps() const { return GetMatProps(0); }
  /// A material of one diffuse colour.
  static brixMatProps CreateMatProps(const brixChroma& colour);
  /// Sets the alpha value to 1 minus the transparency.
  static brixChroma& ApplyTransparency(double transparency, brixChroma& colour);
  /// Whether a texture is in force and coordinates wait for an object.
  bool HasTexture();
  /// White under a texture; true if there is one.
  bool ApplyTextureMaterial(brixMatProps& material);
  /// Registers the waiting texture coordinates for an object and consumes them. False, and the object is without a
  /// texture, if there are none, or the manager doesn't take the record or there is no memory for it.
  bool AttachTexture(brixBaseObject* object);

private:
  brixMatProps GetPartMaterial(int part, int first, int count) const;
  brixChroma GetMeanColour(int part, int first, int count) const;
  int GetMaterialIndexOfPart(int part) const;

  brixBaseGroup* Group;
  bool CreatedGroup = false;
  brixMatrix4x4 Transformation;
  brixFloatPointArray Vertices;
  brixVectorArray Normals;
  brixIntArray VertexIndex;
  brixIntArray NormalIndex;
  brixIntArray MaterialIndex;
  VRMLBindingTypes MaterialBinding;
  brixChromaArray AmbientColor;
  brixChromaArray DiffuseColor;
  brixChromaArray SpecularColor;
  brixChromaArray EmissiveColor;
  brixDoubleArray Shininess;
  brixDoubleArray Transparency;
  VRMLBindingTypes NormalBinding;
  CVRMLDictionaryEntry* DictionaryEntry;
  CVRMLParser* Parser;
  CVRMLTextureState TextureState;
  mutable brixIntArray LaidOutRuns;     ///< the material indices that LaidOutIndices was made from
  mutable brixIntArray LaidOutIndices;  ///< those indices without the counts of their runs
};
