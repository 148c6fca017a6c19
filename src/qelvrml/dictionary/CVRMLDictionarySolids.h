#pragma once

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/VRMLExport.h"

// Entries of the primitive solids. Sizes are in units of the scope at the replay.

/// What a cube or a box was given.
class QELVRML_EXPORT CVRMLDictionaryCube : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryCube() { CVRMLDictionaryCube::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryCube);
    Width = 1.0;
    Height = 1.0;
    Depth = 1.0;
  }

  /// Whole extents along x, y and z; 1 at first.
  /// @{
  double GetWidth() const { return Width; }
  void SetWidth(double value) { Width = value; }
  double GetHeight() const { return Height; }
  void SetHeight(double value) { Height = value; }
  double GetDepth() const { return Depth; }
  void SetDepth(double value) { Depth = value; }
  /// @}

private:
  double Width;
  double Height;
  double Depth;
};

/// What a cone was given.
class QELVRML_EXPORT CVRMLDictionaryCone : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryCone() { CVRMLDictionaryCone::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryCone);
    BottomRadius = 1.0;
    Height = 1.0;
    Side = true;
    Bottom = true;
  }

  /// Radius and height, 1 at first, and whether it has a side and a bottom, true at first.
  /// @{
  double GetBottomRadius() const { return BottomRadius; }
  void SetBottomRadius(double value) { BottomRadius = value; }
  double GetHeight() const { return Height; }
  void SetHeight(double value) { Height = value; }
  bool GetSide() const { return Side; }
  void SetSide(bool value) { Side = value; }
  bool GetBottom() const { return Bottom; }
  void SetBottom(bool value) { Bottom = value; }
  /// @}

private:
  double BottomRadius;
  double Height;
  bool Side;
  bool Bottom;
};

/// What a cylinder was given.
class QELVRML_EXPORT CVRMLDictionaryCylinder : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryCylinder() { CVRMLDictionaryCylinder::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryCylinder);
    Radius = 1.0;
    Height = 1.0;
  }

  /// Radius and height; 1 at first.
  /// @{
  double GetRadius() const { return Radius; }
  void SetRadius(double value) { Radius = value; }
  double GetHeight() const { return Height; }
  void SetHeight(double value) { Height = value; }
  /// @}

private:
  double Radius;
  double Height;
};

/// What a sphere was given.
class QELVRML_EXPORT CVRMLDictionarySphere : public CVRMLDictionaryEntry {
public:
  CVRMLDictionarySphere() { CVRMLDictionarySphere::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntrySphere);
    Radius = 1.0;
  }

  /// The radius; 1 at first.
  /// @{
  double GetRadius() const { return Radius; }
  void SetRadius(double value) { Radius = value; }
  /// @}

private:
  double Radius;
};
