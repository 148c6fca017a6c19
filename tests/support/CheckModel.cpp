#include "support/CheckModel.h"

#include <algorithm>

#include "qelvrml/platform/brix/brixRunList.h"
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

namespace {

std::string FindFaceFault(const CKelPolyface& face) {
  std::size_t places = 0;
  for (const brixRun& run : brixRunList(face.GetFaceList())) {
    places += run.Indices.size() + 1;
    for (const int index : run.Indices) {
      if (static_cast<unsigned>(index) >= face.GetPoints().GetSize()) return "a face names a point that isn't there";
    }
  }
  return places == face.GetFaceList().GetSize() ? "" : "a face list breaks off";
}

std::string FindObjectFault(const brixBaseObject& object) {
  if (ClassOf(object).empty()) return "an object of no known class";
  if (object.GetMatProps().GetMode() != 2) return "an object without a material";
  if (const auto* face = dynamic_cast<const CKelPolyface*>(&object)) {
    if (std::string fault = FindFaceFault(*face); !fault.empty()) return fault;
  }
  if (const auto* mesh = dynamic_cast<const CKelPolyMesh*>(&object)) {
    if (static_cast<unsigned>(mesh->GetRows() * mesh->GetColumns()) != mesh->GetPoints().GetSize())
      return "a mesh of another size";
  }
  brixEvaluation evaluation;
  object.Evaluate(0.0, evaluation);
  const auto outside = [&evaluation](unsigned index) { return index >= evaluation.Points.size(); };
  if (!evaluation.Normals.empty() && evaluation.Normals.size() != evaluation.Points.size())
    return "normals that are missing";
  if (std::any_of(evaluation.Triangles.begin(), evaluation.Triangles.end(), outside))
    return "a triangle without a point";
  if (std::any_of(evaluation.Segments.begin(), evaluation.Segments.end(), outside)) return "a segment without a point";
  return "";
}

std::string FindGroupFault(const brixBaseGroup& group) {
  for (int i = 0; i < group.GetNumObjects(); ++i) {
    if (std::string fault = FindObjectFault(*group.GetObjectAt(i)); !fault.empty()) return fault;
  }
  for (int i = 0; i < group.GetNumGroups(); ++i) {
    const brixBaseGroup& child = *group.GetGroupAt(i);
    if (child.GetNumObjects() + child.GetNumGroups() == 0) return "an empty group";
    if (child.GetGroupName().IsEmpty()) return "a group without a name";
    if (std::string fault = FindGroupFault(child); !fault.empty()) return fault;
  }
  return "";
}

}  // namespace

std::string ClassOf(const brixBaseObject& object) {
  if (dynamic_cast<const brixBox*>(&object)) return "brixBox";
  if (dynamic_cast<const brixCone*>(&object)) return "brixCone";
  if (dynamic_cast<const brixCylinder*>(&object)) return "brixCylinder";
  if (dynamic_cast<const brixDisk*>(&object)) return "brixDisk";
  if (dynamic_cast<const brixDot*>(&object)) return "brixDot";
  if (dynamic_cast<const brixSphere*>(&object)) return "brixSphere";
  if (dynamic_cast<const CKelPolyface*>(&object)) return "CKelPolyface";
  if (dynamic_cast<const CKelPolygon*>(&object)) return "CKelPolygon";
  if (dynamic_cast<const CKelPolyline*>(&object)) return "CKelPolyline";
  if (dynamic_cast<const CKelPolyMesh*>(&object)) return "CKelPolyMesh";
  if (dynamic_cast<const CKelMultipleTriangleStrip*>(&object)) return "CKelMultipleTriangleStrip";
  return "";
}

const brixFloatPointArray& StoredPoints(const brixBaseObject& object) {
  static const brixFloatPointArray none;
  if (const auto* box = dynamic_cast<const brixBox*>(&object)) return box->GetCorners();
  if (const auto* face = dynamic_cast<const CKelPolyface*>(&object)) return face->GetPoints();
  if (const auto* line = dynamic_cast<const CKelPolyline*>(&object)) return line->GetPolyline();
  if (const auto* mesh = dynamic_cast<const CKelPolyMesh*>(&object)) return mesh->GetPoints();
  if (const auto* strips = dynamic_cast<const CKelTriangleStrip*>(&object)) return strips->GetPoints();
  return none;
}

std::string FindFault(const CKelWorld& world) { return FindGroupFault(world); }
