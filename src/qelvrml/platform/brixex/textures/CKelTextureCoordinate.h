#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brixex/textures/CKelTextureTypes.h"

class brixBaseGroup;

/// How a texture lies on one object.
class QELVRML_EXPORT CKelTextureCoordinate {
public:
  CKelTextureCoordinate() = default;
  CKelTextureCoordinate(const CKelTextureCoordinate&) = default;
  CKelTextureCoordinate& operator=(const CKelTextureCoordinate&) = default;
  virtual ~CKelTextureCoordinate() = default;

  int GetTextureID() const { return TextureID; }
  void SetTextureID(int id) { TextureID = id; }
  /// Id of the object.
  int GetParentGeometryID() const { return ParentGeometryID; }
  void SetParentGeometryID(int id) { ParentGeometryID = id; }
  const brix2DFloatPointArray& GetCoordinates() const { return Coordinates; }
  void SetCoordinates(const brix2DFloatPointArray& coordinates) { Coordinates = coordinates; }
  /// The group that holds the object; not owned.
  brixBaseGroup* GetParentGroup() const { return ParentGroup; }
  void SetParentGroup(brixBaseGroup* group) { ParentGroup = group; }
  TextureWrapTypes GetTextureWrapS() const { return WrapS; }
  void SetTextureWrapS(TextureWrapTypes wrap) { WrapS = wrap; }
  TextureWrapTypes GetTextureWrapT() const { return WrapT; }
  void SetTextureWrapT(TextureWrapTypes wrap) { WrapT = wrap; }
  /// In degrees.
  double GetRotation() const { return Rotation; }
  void SetRotation(double degrees) { Rotation = degrees; }
  SKelTextureScale& GetScale() { return Scale; }
  const SKelTextureScale& GetScale() const { return Scale; }

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
