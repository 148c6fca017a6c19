#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brixex/textures/CKelTextureTypes.h"

class brixBaseGroup;

/// How a texture lies on one object. A load makes one for each object that has a texture.
class QELVRML_EXPORT CKelTextureCoordinate {
public:
  CKelTextureCoordinate() = default;
  /// A copy shares the storage of the coordinates.
  /// @{
  CKelTextureCoordinate(const CKelTextureCoordinate&) = default;
  CKelTextureCoordinate& operator=(const CKelTextureCoordinate&) = default;
  /// @}
  virtual ~CKelTextureCoordinate() = default;

  /// Id of the texture, by the texture manager; -1 at first.
  /// @{
  int GetTextureID() const { return TextureID; }
  void SetTextureID(int id) { TextureID = id; }
  /// @}
  /// Id of the object, as its GetId gives it; 0 at first, which no object has.
  /// @{
  int GetParentGeometryID() const { return ParentGeometryID; }
  void SetParentGeometryID(int id) { ParentGeometryID = id; }
  /// @}
  /// Coordinates (s, t) as the scene lists them; (0, 0) and (1, 1) are opposite corners of the image. Empty without a
  /// list. Indices into the list aren't kept.
  /// @{
  const brix2DFloatPointArray& GetCoordinates() const { return Coordinates; }
  void SetCoordinates(const brix2DFloatPointArray& coordinates) { Coordinates = coordinates; }
  /// @}
  /// The group that holds the object; not owned. Null at first.
  /// @{
  brixBaseGroup* GetParentGroup() const { return ParentGroup; }
  void SetParentGroup(brixBaseGroup* group) { ParentGroup = group; }
  /// @}
  /// What happens along s, and along t, outside the image; at first it is repeated.
  /// @{
  TextureWrapTypes GetTextureWrapS() const { return WrapS; }
  void SetTextureWrapS(TextureWrapTypes wrap) { WrapS = wrap; }
  TextureWrapTypes GetTextureWrapT() const { return WrapT; }
  void SetTextureWrapT(TextureWrapTypes wrap) { WrapT = wrap; }
  /// @}
  /// Rotation of the coordinates, in degrees; 0 at first.
  /// @{
  double GetRotation() const { return Rotation; }
  void SetRotation(double degrees) { Rotation = degrees; }
  /// @}
  /// Scale of the coordinates; 1 both ways at first.
  /// @{
  SKelTextureScale& GetScale() { return Scale; }
  const SKelTextureScale& GetScale() const { return Scale; }
  /// @}

private:
  int TextureID = -1;
  int ParentGeometryID = 0;
  brix2DFloatPointArray Coordinates;
  brixBaseGroup* ParentGroup = nullptr;
  TextureWrapTypes WrapS = TextureWrapRepeat;
  TextureWrapTypes WrapT = TextureWrapRepeat;
  double Rotation = 0.0;
  SKelTextureScale Scale;
};
