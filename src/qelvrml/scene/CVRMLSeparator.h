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
/// in force. Groups, entries and parsers aren't owned. A record is used by one thread at a time.
class QELVRML_EXPORT CVRMLSeparator {
public:
  /// Without a group and a parser, with the identity, without points, colours and a texture: objects become white and
  /// opaque.
  CVRMLSeparator() { Initialize(); }
  CVRMLSeparator(const CVRMLSeparator&) = delete;
  /// Leaves the group alone, a created one too.
  ~CVRMLSeparator() = default;

  /// Sets the group, the parser, the entry, the transformation, the bindings, the shininess (0.5) and the transparency
  /// (0) to those of a new record. Points, normals, index lists, colours and the texture state stay.
  void Initialize();
  /// Takes over the state of an enclosing scope: its group, which is shared, and all that a scope inherits. The entry,
  /// the parser and the waiting texture coordinates are not inherited. A group that this record has created is
  /// destroyed.
  CVRMLSeparator& operator=(const CVRMLSeparator& parent);

  /// Where objects of this scope go: the world or a group; null for nowhere. A created group belongs to this record
  /// until CVRMLParser::PopSeparator hands it on.
  /// @{
  brixBaseGroup* GetGroup() const { return Group; }
  void SetGroup(brixBaseGroup* group) { Group = group; }
  bool GetCreatedGroup() const { return CreatedGroup; }
  void SetCreatedGroup(bool created) { CreatedGroup = created; }
  /// @}

  /// Accumulated transformation from this scope's coordinates to world coordinates; points are row vectors.
  /// @{
  brixMatrix4x4& GetTransformation() { return Transformation; }
  void SetTransformation(const brixMatrix4x4& matrix) { Transformation = matrix; }
  /// @}
  /// Puts a matrix, a displacement or a scale about the origin in front of the transformation, so that it acts first on
  /// the points of this scope.
  /// @{
  void MultiplyTransformation(const brixMatrix4x4& matrix);
  void Translate(const brixFloatPoint& by);
  void Scale(const brixFloatPoint& by);
  void Rotate(const brixMatrix4x4& matrix) { MultiplyTransformation(matrix); }
  /// @}
  /// Brings each point to world coordinates.
  void TransformPoints(brixFloatPointArray& points) const;

  /// The coordinates in force, in those of this scope, and the normals, which sets of triangle strips alone use.
  /// @{
  brixFloatPointArray& GetVertices() { return Vertices; }
  void SetVertices(const brixFloatPointArray& points) { Vertices = points; }
  void ClearVertices() { Vertices = {}; }
  brixVectorArray& GetNormals() { return Normals; }
  void SetNormals(const brixVectorArray& normals) { Normals = normals; }
  void ClearNormals() { Normals = {}; }
  /// @}
  /// Run lists of the indexed set at hand: for each run a count and that many indices, from 0 on.
  /// @{
  brixIntArray& GetVertexIndex() { return VertexIndex; }
  void SetVertexIndex(const brixIntArray& runs) { VertexIndex = runs; }
  void ClearVertexIndex() { VertexIndex = {}; }
  brixIntArray& GetNormalIndex() { return NormalIndex; }
  void SetNormalIndex(const brixIntArray& runs) { NormalIndex = runs; }
  void ClearNormalIndex() { NormalIndex = {}; }
  brixIntArray& GetMaterialIndex() { return MaterialIndex; }
  void SetMaterialIndex(const brixIntArray& runs) { MaterialIndex = runs; }
  void ClearMaterialIndex() { MaterialIndex = {}; }
  /// @}

  /// How the material lists are spread over an object; VRMLBindingDefault at first.
  /// @{
  VRMLBindingTypes GetMaterialBinding() const { return MaterialBinding; }
  void SetMaterialBinding(VRMLBindingTypes binding) { MaterialBinding = binding; }
  /// @}
  /// Inherited like the material binding; nothing here reads it, for the model computes its normals.
  /// @{
  VRMLBindingTypes GetNormalBinding() const { return NormalBinding; }
  void SetNormalBinding(VRMLBindingTypes binding) { NormalBinding = binding; }
  /// @}

  /// Ambient colours are kept and inherited for hosts; no material of an object takes them.
  /// @{
  brixChromaArray& GetAmbientColor() { return AmbientColor; }
  void SetAmbientColor(const brixChromaArray& colours) { AmbientColor = colours; }
  /// @}
  /// Colours by list position, with components from 0 to 1; empty at first. Their alpha plays no part but in
  /// the mean of a binding per vertex. The diffuse ones, if there are any, pass to the enclosing scope when this one
  /// closes.
  /// @{
  brixChromaArray& GetDiffuseColor() { return DiffuseColor; }
  void SetDiffuseColor(const brixChromaArray& colours) { DiffuseColor = colours; }
  brixChromaArray& GetSpecularColor() { return SpecularColor; }
  void SetSpecularColor(const brixChromaArray& colours) { SpecularColor = colours; }
  brixChromaArray& GetEmissiveColor() { return EmissiveColor; }
  void SetEmissiveColor(const brixChromaArray& colours) { EmissiveColor = colours; }
  /// @}
  /// Shininess from 0 to 1 by list position; 0.5 at first. The values aren't checked.
  /// @{
  brixDoubleArray& GetShininess() { return Shininess; }
  void SetShininess(const brixDoubleArray& values) { Shininess = values; }
  /// @}
  /// One value for all; above 1.0 it is taken for one on the scale from 0 to 128.
  void SetShininess(double value);
  /// Transparency from 0, opaque, to 1 by list position; 0 at first. The values aren't checked.
  /// @{
  brixDoubleArray& GetTransparency() { return Transparency; }
  void SetTransparency(const brixDoubleArray& values) { Transparency = values; }
  /// @}
  /// One value for all.
  void SetTransparency(double value);

  /// The separator entry that this scope's content is recorded into; null for none; not owned.
  /// @{
  CVRMLDictionaryEntry* GetDictionaryEntry() const { return DictionaryEntry; }
  void SetDictionaryEntry(CVRMLDictionaryEntry* entry) { DictionaryEntry = entry; }
  /// @}
  /// The parser whose stack this is in, which leads to the textures; null for none; not owned.
  /// @{
  CVRMLParser* GetParser() const { return Parser; }
  void SetParser(CVRMLParser* parser) { Parser = parser; }
  /// @}
  /// The texture in force.
  /// @{
  CVRMLTextureState& GetTextureState() { return TextureState; }
  void SetTextureState(const CVRMLTextureState& state) { TextureState = state; }
  /// @}
  /// Lets go of the coordinates that wait for the next object.
  void ClearTextureCoordinates() { TextureState.SetTextureCoordinates({}); }
  /// Null without a parser, or when its world has none. Belongs to the world.
  CKelTextureManager* GetTextureManager() const;

  /// Drops the points that no index names and rewrites the indices. True if anything was removed. Indices outside the
  /// points are left alone.
  static bool CompactVertices(brixFloatPointArray& points, brixIntArray& runs);

  /// Adds an object to the group, which owns it from then on, and lets the waiting texture coordinates be its own.
  /// Under a texture its diffuse colour is white.
  ///
  /// The material is the given one, or that of a list position, of the first one without any; or by the material
  /// binding that of a part of an indexed set: part number `part`, whose `count` vertices, one or more, start at
  /// position `first` of the run list. False, and the object stays with the caller, without a group or an object.
  /// @{
  bool AddObject(brixBaseObject* object);
  bool AddObject(brixBaseObject* object, int index);
  bool AddObject(brixBaseObject* object, int part, int first, int count);
  bool AddObject(brixBaseObject* object, const brixMatProps& material);
  /// @}

  /// The material of a list position, the same for both sides. A list of colours that ends ahead of it leaves the
  /// colour of a new brixMaterial. If all three do, the diffuse colour is white; without any diffuse colours it is the
  /// specular one, or else the emissive one, or white. Transparency, which becomes the alpha of all colours, and
  /// shininess, here on the scale from 0 to 128, fall back to their first values.
  /// @{
  brixMatProps GetMatProps(int index) const;
  brixMatProps GetMatProps() const { return GetMatProps(0); }
  /// @}
  /// A material of one diffuse colour, the same for both sides, with a shininess of 64.
  static brixMatProps CreateMatProps(const brixChroma& colour);
  /// Sets the alpha value to 1 minus the transparency.
  static brixChroma& ApplyTransparency(double transparency, brixChroma& colour);
  /// Whether a texture is in force and coordinates wait for an object.
  bool HasTexture();
  /// Makes the diffuse colour white under a texture; true if there is one. The alpha becomes 1.
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
