#pragma once

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

/// Faces over common points.
class QELVRML_EXPORT CKelPolyface : public brixBaseObject {
public:
  /// `faces` is a run list: for each face a count and that many point indices, from 0 on. `compress` is a hint for
  /// drawing: points may be shared between faces. Shares the storage of both arrays, which aren't checked.
  virtual void SetPoints(const brixFloatPointArray& points, const brixIntArray& faces, bool compress);
  /// What was set, with the points in world coordinates.
  /// @{
  const brixFloatPointArray& GetPoints() const { return Points; }
  const brixIntArray& GetFaceList() const { return Faces; }
  bool GetCompress() const { return Compress; }
  /// @}

  const char* GetClassName() const override { return "CKelPolyface"; }
  void Accept(brixObjectVisitor& visitor) const override;
  void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) override;
  /// The same; the last two arguments have no effect.
  virtual void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox, bool recompute);
  brixBBox ComputeBBox() const override;
  /// Each face has points of its own, its corners in their order, one face after the other; their normals are that of
  /// the face, by Newell's method. An index without a point is left out, and so is a face of fewer than three points.
  /// Where lines of a face cross, its triangles are a fan about its first point.
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

private:
  brixFloatPointArray Points;
  brixIntArray Faces;
  bool Compress = false;
};
