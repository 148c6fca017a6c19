#pragma once

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/parser/VRMLBindingTypes.h"
#include "qelvrml/platform/brix/brixArrays.h"

// Entries of the materials, coordinates, normals and bindings.

/// What a material was given; a field that the node lacks is an empty array.
class QELVRML_EXPORT CVRMLDictionaryMaterial : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryMaterial() { CVRMLDictionaryMaterial::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryMaterial);
    AmbientColor = {};
    DiffuseColor = {};
    SpecularColor = {};
    EmissiveColor = {};
    Shininess = {};
    Transparency = {};
  }

  /// Colours, shininess from 0 to 1 and transparency from 0, opaque, to 1, by list position; empty at first.
  /// @{
  brixChromaArray& GetAmbientColor() { return AmbientColor; }
  void SetAmbientColor(const brixChromaArray& value) { AmbientColor = value; }
  brixChromaArray& GetDiffuseColor() { return DiffuseColor; }
  void SetDiffuseColor(const brixChromaArray& value) { DiffuseColor = value; }
  brixChromaArray& GetSpecularColor() { return SpecularColor; }
  void SetSpecularColor(const brixChromaArray& value) { SpecularColor = value; }
  brixChromaArray& GetEmissiveColor() { return EmissiveColor; }
  void SetEmissiveColor(const brixChromaArray& value) { EmissiveColor = value; }
  brixDoubleArray& GetShininess() { return Shininess; }
  void SetShininess(const brixDoubleArray& value) { Shininess = value; }
  brixDoubleArray& GetTransparency() { return Transparency; }
  void SetTransparency(const brixDoubleArray& value) { Transparency = value; }
  /// @}

private:
  brixChromaArray AmbientColor;
  brixChromaArray DiffuseColor;
  brixChromaArray SpecularColor;
  brixChromaArray EmissiveColor;
  brixDoubleArray Shininess;
  brixDoubleArray Transparency;
};

/// The points of a coordinate node.
class QELVRML_EXPORT CVRMLDictionaryCoordinate : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryCoordinate() { CVRMLDictionaryCoordinate::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryCoordinate);
    Points = {};
  }

  /// In the coordinates of the scope at the replay; empty at first.
  /// @{
  brixFloatPointArray& GetPoints() { return Points; }
  void SetPoints(const brixFloatPointArray& value) { Points = value; }
  /// @}

private:
  brixFloatPointArray Points;
};

/// The vectors of a normal node.
class QELVRML_EXPORT CVRMLDictionaryNormal : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryNormal() { CVRMLDictionaryNormal::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryNormal);
    Vectors = {};
  }

  /// In the coordinates of the scope at the replay; empty at first.
  /// @{
  brixVectorArray& GetVectors() { return Vectors; }
  void SetVectors(const brixVectorArray& value) { Vectors = value; }
  /// @}

private:
  brixVectorArray Vectors;
};

/// Base of the two bindings; the type tells which of them an entry is.
class QELVRML_EXPORT CVRMLDictionaryBinding : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryBinding() { CVRMLDictionaryBinding::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryNormalBinding);
    Binding = VRMLBindingDefault;
  }

  /// VRMLBindingDefault at first. The binding stays when Initialize of a derived class is called.
  /// @{
  VRMLBindingTypes GetBinding() const { return Binding; }
  void SetBinding(VRMLBindingTypes value) { Binding = value; }
  /// @}

private:
  VRMLBindingTypes Binding;
};

/// A normal binding.
class QELVRML_EXPORT CVRMLDictionaryNormalBinding : public CVRMLDictionaryBinding {
public:
  CVRMLDictionaryNormalBinding() { CVRMLDictionaryNormalBinding::Initialize(); }

  void Initialize() override { SetType(DictionaryEntryNormalBinding); }
};

/// A material binding.
class QELVRML_EXPORT CVRMLDictionaryMaterialBinding : public CVRMLDictionaryBinding {
public:
  CVRMLDictionaryMaterialBinding() { CVRMLDictionaryMaterialBinding::Initialize(); }

  void Initialize() override { SetType(DictionaryEntryMaterialBinding); }
};
