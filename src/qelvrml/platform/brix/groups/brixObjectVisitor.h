#pragma once

#include "qelvrml/foundation/VRMLExport.h"

class brixBox;
class brixCone;
class brixCylinder;
class brixDisk;
class brixDot;
class brixSphere;
class CKelMultipleTriangleStrip;
class CKelPolyface;
class CKelPolygon;
class CKelPolyline;
class CKelPolyMesh;
class CKelTriangleStrip;

/// What to do with an object, by its class: `object.Accept(visitor)` calls the operation of the very class that the
/// object has, never that of a base. Operations that aren't overridden do nothing.
class QELVRML_EXPORT brixObjectVisitor {
public:
  brixObjectVisitor() = default;
  brixObjectVisitor(const brixObjectVisitor&) = delete;
  brixObjectVisitor& operator=(const brixObjectVisitor&) = delete;
  virtual ~brixObjectVisitor() = default;

  /// Called by `Accept` of an object of that class.
  /// @{
  virtual void Visit(const brixBox& /*box*/) {}
  virtual void Visit(const brixCone& /*cone*/) {}
  virtual void Visit(const brixCylinder& /*cylinder*/) {}
  virtual void Visit(const brixDisk& /*disk*/) {}
  virtual void Visit(const brixDot& /*dot*/) {}
  virtual void Visit(const brixSphere& /*sphere*/) {}
  virtual void Visit(const CKelMultipleTriangleStrip& /*strips*/) {}
  virtual void Visit(const CKelPolyface& /*face*/) {}
  virtual void Visit(const CKelPolygon& /*polygon*/) {}
  virtual void Visit(const CKelPolyline& /*line*/) {}
  virtual void Visit(const CKelPolyMesh& /*mesh*/) {}
  virtual void Visit(const CKelTriangleStrip& /*strip*/) {}
  /// @}
};
