#pragma once

#include "qelvrml/dictionary/CVRMLDictionaryEntry.h"
#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"

// Entries of the geometry nodes with point or index lists. Points and materials are those in force at the replay.

/// What an indexed set was given, as run lists.
class QELVRML_EXPORT CVRMLDictionaryIndexedSet : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryIndexedSet() { CVRMLDictionaryIndexedSet::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryIndexedSet);
    CoordIndex = {};
    NormalIndex = {};
    MaterialIndex = {};
    IsFaceSet = true;
  }

  /// Run lists, empty at first: for each run a count and that many indices, from 0 on. The runs of the first one are
  /// faces, or else lines.
  /// @{
  brixIntArray& GetCoordIndex() { return CoordIndex; }
  void SetCoordIndex(const brixIntArray& value) { CoordIndex = value; }
  brixIntArray& GetNormalIndex() { return NormalIndex; }
  void SetNormalIndex(const brixIntArray& value) { NormalIndex = value; }
  brixIntArray& GetMaterialIndex() { return MaterialIndex; }
  void SetMaterialIndex(const brixIntArray& value) { MaterialIndex = value; }
  bool GetIsFaceSet() const { return IsFaceSet; }
  void SetIsFaceSet(bool value) { IsFaceSet = value; }
  /// @}

private:
  brixIntArray CoordIndex;
  brixIntArray NormalIndex;
  brixIntArray MaterialIndex;
  bool IsFaceSet;
};

/// Which points a point set has used, of those that were in force.
class QELVRML_EXPORT CVRMLDictionaryPointSet : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryPointSet() { CVRMLDictionaryPointSet::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryPointSet);
    StartIndex = 0;
    NumPoints = -1;
  }

  /// The first point, from 0 on, and how many; 0 and -1 at first, of which a replay makes nothing.
  /// @{
  int GetStartIndex() const { return StartIndex; }
  void SetStartIndex(int value) { StartIndex = value; }
  int GetNumPoints() const { return NumPoints; }
  void SetNumPoints(int value) { NumPoints = value; }
  /// @}

private:
  int StartIndex;
  int NumPoints;
};

/// What an elevation grid was given.
class QELVRML_EXPORT CVRMLDictionaryElevationGrid : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryElevationGrid() { CVRMLDictionaryElevationGrid::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryElevationGrid);
    Solid = true;
    Height = {};
    XDimension = 0.0;
    XSpacing = 0.0;
    ZDimension = 0.0;
    ZSpacing = 0.0;
  }

  /// A mesh if solid, else lines; the heights, row by row along x; and for each direction the number of points, as the
  /// node gave it, and their distance. Solid, and without a grid, at first.
  /// @{
  bool GetSolid() const { return Solid; }
  void SetSolid(bool value) { Solid = value; }
  brixDoubleArray& GetHeight() { return Height; }
  void SetHeight(const brixDoubleArray& value) { Height = value; }
  double GetXDimension() const { return XDimension; }
  void SetXDimension(double value) { XDimension = value; }
  double GetXSpacing() const { return XSpacing; }
  void SetXSpacing(double value) { XSpacing = value; }
  double GetZDimension() const { return ZDimension; }
  void SetZDimension(double value) { ZDimension = value; }
  double GetZSpacing() const { return ZSpacing; }
  void SetZSpacing(double value) { ZSpacing = value; }
  /// @}

private:
  bool Solid;
  brixDoubleArray Height;
  double XDimension;
  double XSpacing;
  double ZDimension;
  double ZSpacing;
};

/// What an extrusion was given.
class QELVRML_EXPORT CVRMLDictionaryExtrusion : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryExtrusion() { CVRMLDictionaryExtrusion::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryExtrusion);
    Solid = true;
    BeginCap = true;
    EndCap = true;
    OrientationAxes = {};
    OrientationAngles = {};
    Scale = {};
    CrossSection = {};
    Spine = {};
  }

  /// The arguments of CVRMLParser::DefineExtrusion: angles are in radians, scale and cross-section hold pairs of x and
  /// z. Solid with both caps, and without a shape, at first.
  /// @{
  bool GetSolid() const { return Solid; }
  void SetSolid(bool value) { Solid = value; }
  bool GetBeginCap() const { return BeginCap; }
  void SetBeginCap(bool value) { BeginCap = value; }
  bool GetEndCap() const { return EndCap; }
  void SetEndCap(bool value) { EndCap = value; }
  brixVectorArray& GetOrientationAxes() { return OrientationAxes; }
  void SetOrientationAxes(const brixVectorArray& value) { OrientationAxes = value; }
  brixDoubleArray& GetOrientationAngles() { return OrientationAngles; }
  void SetOrientationAngles(const brixDoubleArray& value) { OrientationAngles = value; }
  brixDoubleArray& GetScale() { return Scale; }
  void SetScale(const brixDoubleArray& value) { Scale = value; }
  brixDoubleArray& GetCrossSection() { return CrossSection; }
  void SetCrossSection(const brixDoubleArray& value) { CrossSection = value; }
  brixFloatPointArray& GetSpine() { return Spine; }
  void SetSpine(const brixFloatPointArray& value) { Spine = value; }
  /// @}

private:
  bool Solid;
  bool BeginCap;
  bool EndCap;
  brixVectorArray OrientationAxes;
  brixDoubleArray OrientationAngles;
  brixDoubleArray Scale;
  brixDoubleArray CrossSection;
  brixFloatPointArray Spine;
};

/// What a set of triangle strips was given.
class QELVRML_EXPORT CVRMLDictionaryTriangleStripSet : public CVRMLDictionaryEntry {
public:
  CVRMLDictionaryTriangleStripSet() { CVRMLDictionaryTriangleStripSet::Initialize(); }

  void Initialize() override {
    SetType(DictionaryEntryTriangleStripSet);
    NumVertices = {};
  }

  /// The number of vertices of each strip; empty at first.
  /// @{
  brixIntArray& GetNumVertices() { return NumVertices; }
  void SetNumVertices(const brixIntArray& value) { NumVertices = value; }
  /// @}

private:
  brixIntArray NumVertices;
};
