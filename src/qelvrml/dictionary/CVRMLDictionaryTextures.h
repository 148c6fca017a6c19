#pragma once

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brixex/textures/CKelTextureTypes.h"

// Entries of the texture nodes.

/// Which texture was put in force, and how it repeats.
class QELVRML_EXPORT CVRMLDictionaryTexture : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryTexture() { CVRMLDictionaryTexture::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryTexture);
    TextureID = -1;
    WrapS = TextureWrapRepeat;
    WrapT = TextureWrapRepeat;
  }

  /// Id in the texture manager, -1 for none, and what happens outside the image; none and repeated at first.
  /// @{
  int GetTextureID() const { return TextureID; }
  void SetTextureID(int value) { TextureID = value; }
  TextureWrapTypes GetWrapS() const { return WrapS; }
  void SetWrapS(TextureWrapTypes value) { WrapS = value; }
  TextureWrapTypes GetWrapT() const { return WrapT; }
  void SetWrapT(TextureWrapTypes value) { WrapT = value; }
  /// @}

private:
  int TextureID;
  TextureWrapTypes WrapS;
  TextureWrapTypes WrapT;
};

/// The points of a texture coordinate node.
class QELVRML_EXPORT CVRMLDictionaryTextureCoordinates : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryTextureCoordinates() { CVRMLDictionaryTextureCoordinates::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryTextureCoordinates);
    Points = {};
  }

  /// Coordinates for the next object of the scope at the replay; empty at first.
  /// @{
  brix2DFloatPointArray& GetPoints() { return Points; }
  void SetPoints(const brix2DFloatPointArray& value) { Points = value; }
  /// @}

private:
  brix2DFloatPointArray Points;
};

/// What a texture transform was given; the rotation is in degrees.
class QELVRML_EXPORT CVRMLDictionaryTextureTransform : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryTextureTransform() { CVRMLDictionaryTextureTransform::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryTextureTransform);
    Center = {};
    Scale = {1.0F, 1.0F};
    Translation = {};
    Rotation = 0.0;
  }

  /// The arguments of CVRMLParser::DefineTextureTransform; no transformation at first.
  /// @{
  brix2DFloatPoint& GetCenter() { return Center; }
  void SetCenter(const brix2DFloatPoint& value) { Center = value; }
  brix2DFloatPoint& GetScale() { return Scale; }
  void SetScale(const brix2DFloatPoint& value) { Scale = value; }
  brix2DFloatPoint& GetTranslation() { return Translation; }
  void SetTranslation(const brix2DFloatPoint& value) { Translation = value; }
  double GetRotation() const { return Rotation; }
  void SetRotation(double value) { Rotation = value; }
  /// @}

private:
  brix2DFloatPoint Center;
  brix2DFloatPoint Scale;
  brix2DFloatPoint Translation;
  double Rotation;
};
