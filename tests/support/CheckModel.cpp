#include "support/CheckModel.h"

#include <algorithm>

#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixDot.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"

namespace {

/// Collects the points that an object holds, and what is wrong with its lists.
class Inspector : public brixObjectVisitor {
public:
  std::vector<brixFloatPoint> Points;
  std::string Fault;

  void Visit(const brixBox& box) override { Take(box.GetCorners()); }
  void Visit(const brixDot& dot) override { Points.push_back(dot.GetDot()); }
  void Visit(const CKelPolygon& polygon) override { Take(polygon.GetPolyline()); }
  void Visit(const CKelPolyline& line) override { Take(line.GetPolyline()); }
  void Visit(const CKelMultipleTriangleStrip& strips) override { Take(strips.GetPoints()); }
  void Visit(const CKelPolyMesh& mesh) override {
    Take(mesh.GetPoints());
    if (static_cast<std::size_t>(mesh.GetRows()) * static_cast<std::size_t>(mesh.GetColumns()) != Points.size())
      Fault = "a mesh of another size";
  }
  void Visit(const CKelPolyface& face) override {
    Take(face.GetPoints());
    for (const brixRun& run : brixRunList(face.GetFaceList())) {
      for (const int index : run.Indices) {
        if (static_cast<unsigned>(index) >= Points.size()) Fault = "a face names a point that isn't there";
      }
      const int count = face.GetFaceList().View()[static_cast<std::size_t>(run.First) - 1];
      if (count != static_cast<int>(run.Indices.size())) Fault = "a face list breaks off";
    }
  }

private:
  void Take(const brixFloatPointArray& points) { Points.assign(points.View().begin(), points.View().end()); }
};

std::string FindObjectFault(const brixBaseObject& object) {
  if (object.GetMatProps().GetMode() != 2) return "an object without a material";
  Inspector inspector;
  object.Accept(inspector);
  if (!inspector.Fault.empty()) return inspector.Fault;
  brixEvaluation evaluation;
  object.Evaluate(0.0, evaluation);
  const auto outside = [&evaluation](unsigned index) { return index >= evaluation.Points.size(); };
  if (!evaluation.Normals.empty() && evaluation.Normals.size() != evaluation.Points.size())
    return "normals that are missing";
  if (std::any_of(evaluation.Triangles.begin(), evaluation.Triangles.end(), outside))
    return "a triangle without a point";
  if (object.CountTriangles(0.0) != evaluation.Triangles.size() / 3) return "triangles that aren't counted rightly";
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

std::vector<brixFloatPoint> StoredPoints(const brixBaseObject& object) {
  Inspector inspector;
  object.Accept(inspector);
  return inspector.Points;
}

std::string FindFault(const CKelWorld& world) { return FindGroupFault(world); }
