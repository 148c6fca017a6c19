#pragma once

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixFloatPoint.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"

// Entries of the transformations. A replay puts them in front of that of the scope that it is in. Points are row
// vectors. At first all are the identity.

/// What a transform was given.
class QELVRML_EXPORT CVRMLDictionaryTransform : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryTransform() { CVRMLDictionaryTransform::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryTransform);
    Rotation = {};
    Translation = {};
    ScaleFactor = {1.0F, 1.0F, 1.0F};
    ScaleOrientation = {};
    Center = {};
  }

  /// The arguments of CVRMLParser::DefineTransform, which tells how they act.
  /// @{
  brixMatrix4x4& GetRotation() { return Rotation; }
  void SetRotation(const brixMatrix4x4& value) { Rotation = value; }
  brixFloatPoint& GetTranslation() { return Translation; }
  void SetTranslation(const brixFloatPoint& value) { Translation = value; }
  brixFloatPoint& GetScaleFactor() { return ScaleFactor; }
  void SetScaleFactor(const brixFloatPoint& value) { ScaleFactor = value; }
  brixMatrix4x4& GetScaleOrientation() { return ScaleOrientation; }
  void SetScaleOrientation(const brixMatrix4x4& value) { ScaleOrientation = value; }
  brixFloatPoint& GetCenter() { return Center; }
  void SetCenter(const brixFloatPoint& value) { Center = value; }
  /// @}

private:
  brixMatrix4x4 Rotation;
  brixFloatPoint Translation;
  brixFloatPoint ScaleFactor;
  brixMatrix4x4 ScaleOrientation;
  brixFloatPoint Center;
};

/// What a matrix transform was given.
class QELVRML_EXPORT CVRMLDictionaryMatrix : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryMatrix() { CVRMLDictionaryMatrix::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryMatrix);
    Matrix = {};
  }

  /// The matrix of the node.
  /// @{
  brixMatrix4x4& GetMatrix() { return Matrix; }
  void SetMatrix(const brixMatrix4x4& value) { Matrix = value; }
  /// @}

private:
  brixMatrix4x4 Matrix;
};

/// What a rotation was given.
class QELVRML_EXPORT CVRMLDictionaryRotation : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryRotation() { CVRMLDictionaryRotation::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryRotation);
    Matrix = {};
  }

  /// The rotation as a matrix.
  /// @{
  brixMatrix4x4& GetMatrix() { return Matrix; }
  void SetMatrix(const brixMatrix4x4& value) { Matrix = value; }
  /// @}

private:
  brixMatrix4x4 Matrix;
};

/// What a scale was given.
class QELVRML_EXPORT CVRMLDictionaryScale : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryScale() { CVRMLDictionaryScale::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryScale);
    ScaleFactor = {1.0F, 1.0F, 1.0F};
  }

  /// Factors along x, y and z about the origin.
  /// @{
  brixFloatPoint& GetScaleFactor() { return ScaleFactor; }
  void SetScaleFactor(const brixFloatPoint& value) { ScaleFactor = value; }
  /// @}

private:
  brixFloatPoint ScaleFactor;
};

/// What a translation was given.
class QELVRML_EXPORT CVRMLDictionaryTranslation : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryTranslation() { CVRMLDictionaryTranslation::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryTranslation);
    Translation = {};
  }

  /// How far a point moves along x, y and z.
  /// @{
  brixFloatPoint& GetTranslation() { return Translation; }
  void SetTranslation(const brixFloatPoint& value) { Translation = value; }
  /// @}

private:
  brixFloatPoint Translation;
};
