#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brixex/textures/CKelTextureTypes.h"

/// The texture in force in a scope. A plain value.
class QELVRML_EXPORT CVRMLTextureState {
public:
  /// No texture, repeated in both directions, without a transformation.
  CVRMLTextureState() { Initialize(); }

  /// Sets what a new object has.
  void Initialize();
  /// Takes over everything but the coordinates.
  void Copy(const CVRMLTextureState& other);

  /// Id in the texture manager; -1 means none.
  /// @{
  int GetTextureID() const { return TextureID; }
  void SetTextureID(int id) { TextureID = id; }
  /// @}
  /// What happens outside 0 to 1, along each side of the image.
  /// @{
  TextureWrapTypes GetWrapS() const { return WrapS; }
  void SetWrapS(TextureWrapTypes wrap) { WrapS = wrap; }
  TextureWrapTypes GetWrapT() const { return WrapT; }
  void SetWrapT(TextureWrapTypes wrap) { WrapT = wrap; }
  /// @}
  /// Coordinates that wait for the next object of this very scope. Scopes inside it don't inherit them.
  /// @{
  brix2DFloatPointArray& GetTextureCoordinates() { return TextureCoordinates; }
  void SetTextureCoordinates(const brix2DFloatPointArray& coordinates) { TextureCoordinates = coordinates; }
  /// @}
  /// The transformation of coordinates: (0, 0), (1, 1) and (0, 0) at first. The centre and the translation are kept and
  /// inherited for hosts; only scale and rotation reach the model.
  /// @{
  brix2DFloatPoint& GetCenter() { return Center; }
  void SetCenter(const brix2DFloatPoint& center) { Center = center; }
  brix2DFloatPoint& GetScale() { return Scale; }
  void SetScale(const brix2DFloatPoint& scale) { Scale = scale; }
  brix2DFloatPoint& GetTranslation() { return Translation; }
  void SetTranslation(const brix2DFloatPoint& translation) { Translation = translation; }
  /// @}
  /// In degrees.
  /// @{
  double GetRotation() const { return Rotation; }
  void SetRotation(double degrees) { Rotation = degrees; }
  /// @}

private:
  int TextureID;
  TextureWrapTypes WrapS;
  TextureWrapTypes WrapT;
  brix2DFloatPointArray TextureCoordinates;
  brix2DFloatPoint Center;
  brix2DFloatPoint Scale;
  brix2DFloatPoint Translation;
  double Rotation;
};
