#pragma once

#include <memory>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"

namespace qelvrml {
class StripCoordinates;
}  // namespace qelvrml

/// A strip of triangles: each point from the third on makes one with the two before it. Every second one is turned
/// round, so that all of them face the side that the first three points run counter-clockwise about.
class QELVRML_EXPORT CKelTriangleStrip : public brixBaseObject {
public:
  /// A strip without points.
  CKelTriangleStrip();
  /// Shares the storage of both arrays. Normals that don't match the points in number don't count: they are made from
  /// the triangles around each point, weighted by their area.
  void SetPoints(const brixFloatPointArray& points, const brixVectorArray& normals);
  /// What was set, with the points in world coordinates.
  /// @{
  const brixFloatPointArray& GetPoints() const;
  const brixVectorArray& GetNormals() const;
  /// @}
  /// Strips that are given the same coordinates share them, and what the same matrices make of them; not null.
  void ShareCoordinates(std::shared_ptr<const qelvrml::StripCoordinates> coordinates);

  const char* GetClassName() const override { return "CKelTriangleStrip"; }
  void Accept(brixObjectVisitor& visitor) const override;
  /// Given normals stay at right angles to the surface and get the length 1.
  void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) override;
  brixBBox ComputeBBox() const override;
  brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const override;
  std::size_t CountTriangles(double chordTolerance) const override;

protected:
  /// Number of triangles of a strip of so many points.
  static constexpr std::size_t TrianglesOfStrip(std::size_t points) { return points > 2 ? points - 2 : 0; }
  /// Adds the triangles of a strip of `count` points from `first` on.
  static void AddStrip(unsigned first, unsigned count, brixEvaluation& result);
  /// Fills in the points and, behind the triangles, the normals.
  /// @{
  void AddPoints(brixEvaluation& result) const;
  void AddNormals(brixEvaluation& result) const;
  /// @}

private:
  std::shared_ptr<const qelvrml::StripCoordinates> Coordinates;
};
