#pragma once

#include <cstddef>

#include "qelvrml/foundation/VRMLExport.h"
#include "qelvrml/platform/brix/brixBBox.h"
#include "qelvrml/platform/brix/brixBool.h"
#include "qelvrml/platform/brix/brixMaterial.h"
#include "qelvrml/platform/brix/brixMatrix4x4.h"
#include "qelvrml/platform/brix/brixWRope.h"
#include "qelvrml/platform/brix/groups/brixEvaluation.h"

class brixObjectVisitor;

/// Base of all objects of a model. Lengths are in units of the model.
///
/// Several threads can read an object as long as nobody changes it.
class QELVRML_EXPORT brixBaseObject {
public:
  /// An object without a name, with the default material and an id of its own.
  brixBaseObject();
  brixBaseObject(const brixBaseObject&) = delete;
  brixBaseObject& operator=(const brixBaseObject&) = delete;
  virtual ~brixBaseObject() = default;

  /// Unique among all objects of the process, from 1 on.
  unsigned int GetId() const { return Id; }
  /// The name, which need not be unique; empty at first.
  /// @{
  void SetObjectName(const brixWRope& name) { Name = name; }
  const brixWRope& GetObjectName() const { return Name; }
  /// @}
  /// The one material of the whole object. A group that the object is added to sets it.
  /// @{
  void SetMatProps(const brixMatProps& material) { Material = material; }
  const brixMatProps& GetMatProps() const { return Material; }
  /// @}

  /// Name of the object's class, such as "brixCone"; a text that lasts as long as the library.
  virtual const char* GetClassName() const = 0;
  /// Calls the visitor's operation for the object's class.
  virtual void Accept(brixObjectVisitor& visitor) const = 0;
  /// Brings the object to another place: its points, as row vectors, times the matrix. `updateBox` has no effect, since
  /// boxes are computed when they are asked for.
  virtual void ApplyMatrixToGeometry(const brixMatrix4x4& matrix, brixBool updateBox) = 0;
  /// Exact extent in world coordinates; empty for an object without points.
  virtual brixBBox ComputeBBox() const = 0;
  /// Adds nothing to what `result` held before: it is filled anew. `chordTolerance` is the largest distance allowed
  /// between a curved surface and its triangles, in units of the model; 0 or less stands for a hundredth of the radius.
  /// An arc gets at most 4096 steps. brixEFailed if that gives nothing to draw. Raises std::bad_alloc.
  virtual brixEReturn Evaluate(double chordTolerance, brixEvaluation& result) const = 0;
  /// How many triangles Evaluate gives at that tolerance. Most objects know without making them.
  virtual std::size_t CountTriangles(double chordTolerance) const;

private:
  unsigned int Id;
  brixWRope Name;
  brixMatProps Material;
};
