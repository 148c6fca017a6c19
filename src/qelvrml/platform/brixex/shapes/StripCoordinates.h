#pragma once

#include <memory>
#include <mutex>

#include "qelvrml/platform/brix/brixArrays.h"
#include "qelvrml/platform/brix/brixBBox.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"

namespace qelvrml {

/// The coordinates that strips lie in. Strips in the same ones, moved alike, have one of these in common.
class StripCoordinates {
public:
  StripCoordinates() = default;
  StripCoordinates(const brixFloatPointArray& points, const brixVectorArray& normals);

  const brixFloatPointArray& GetPoints() const { return Points; }
  const brixVectorArray& GetNormals() const { return Normals; }
  const brixBBox& GetBox() const { return Box; }
  bool AreOf(const brixFloatPointArray& points, const brixVectorArray& normals) const {
    return Points.SharesStorage(points) && Normals.SharesStorage(normals);
  }

  /// What the last call of Move gave, if it was for this matrix and a strip still lies in it; else null.
  std::shared_ptr<const StripCoordinates> FindMoved(const brixMatrix4x4& matrix) const;
  /// Points times the matrix; normals stay at right angles to the surface and get the length 1.
  std::shared_ptr<const StripCoordinates> Move(const brixMatrix4x4& matrix) const;

private:
  brixFloatPointArray Points;
  brixVectorArray Normals;
  brixBBox Box;

  mutable std::mutex Moving;  // copies of a strip may belong to different threads
  mutable brixMatrix4x4 Matrix;
  mutable std::weak_ptr<const StripCoordinates> Moved;
};

}  // namespace qelvrml
