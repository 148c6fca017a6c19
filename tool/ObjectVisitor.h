#pragma once

#include <string>

#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixCone.h"
#include "qelvrml/platform/brix/solids/brixCylinder.h"
#include "qelvrml/platform/brix/solids/brixDisk.h"
#include "qelvrml/platform/brix/solids/brixDot.h"
#include "qelvrml/platform/brix/solids/brixSphere.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyline.h"

/// One operation for each class of objects; a polygon is visited as the line around it.
class ObjectVisitor {
public:
  ObjectVisitor() = default;
  ObjectVisitor(const ObjectVisitor&) = delete;
  ObjectVisitor& operator=(const ObjectVisitor&) = delete;
  virtual ~ObjectVisitor() = default;

  virtual void Visit(const brixCone& cone) = 0;
  virtual void Visit(const brixCylinder& cylinder) = 0;
  virtual void Visit(const brixSphere& sphere) = 0;
  virtual void Visit(const brixDisk& disk) = 0;
  virtual void Visit(const brixBox& box) = 0;
  virtual void Visit(const brixDot& dot) = 0;
  virtual void Visit(const CKelPolyface& face) = 0;
  virtual void Visit(const CKelPolyline& line) = 0;
  virtual void Visit(const CKelPolyMesh& mesh) = 0;
  virtual void Visit(const CKelMultipleTriangleStrip& strips) = 0;
};

template <class Class>
bool VisitAs(const brixBaseObject& object, ObjectVisitor& visitor) {
  const auto* as = dynamic_cast<const Class*>(&object);
  if (as) visitor.Visit(*as);
  return as != nullptr;
}

inline void VisitObject(const brixBaseObject& object, ObjectVisitor& visitor) {
  VisitAs<CKelPolyface>(object, visitor) || VisitAs<CKelPolyline>(object, visitor) ||
      VisitAs<brixBox>(object, visitor) || VisitAs<brixDisk>(object, visitor) ||
      VisitAs<brixCylinder>(object, visitor) || VisitAs<brixSphere>(object, visitor) ||
      VisitAs<brixCone>(object, visitor) || VisitAs<brixDot>(object, visitor) ||
      VisitAs<CKelPolyMesh>(object, visitor) || VisitAs<CKelMultipleTriangleStrip>(object, visitor);
}

/// Name of an object's class.
inline std::string ClassName(const brixBaseObject& object) {
  class Namer : public ObjectVisitor {
  public:
    std::string Name;
    void Visit(const brixCone& /*cone*/) override { Name = "brixCone"; }
    void Visit(const brixCylinder& /*cylinder*/) override { Name = "brixCylinder"; }
    void Visit(const brixSphere& /*sphere*/) override { Name = "brixSphere"; }
    void Visit(const brixDisk& /*disk*/) override { Name = "brixDisk"; }
    void Visit(const brixBox& /*box*/) override { Name = "brixBox"; }
    void Visit(const brixDot& /*dot*/) override { Name = "brixDot"; }
    void Visit(const CKelPolyface& /*face*/) override { Name = "CKelPolyface"; }
    void Visit(const CKelPolyline& line) override {
      Name = dynamic_cast<const CKelPolygon*>(&line) ? "CKelPolygon" : "CKelPolyline";
    }
    void Visit(const CKelPolyMesh& /*mesh*/) override { Name = "CKelPolyMesh"; }
    void Visit(const CKelMultipleTriangleStrip& /*strips*/) override { Name = "CKelMultipleTriangleStrip"; }
  };
  Namer namer;
  VisitObject(object, namer);
  return namer.Name;
}
