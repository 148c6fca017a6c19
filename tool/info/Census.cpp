#include "info/Census.h"

#include <algorithm>
#include <cstddef>

#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixDot.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

namespace {

class PartCounter : public brixObjectVisitor {
public:
  void Visit(const brixBox& box) override { Add(box.GetCorners().GetSize(), 6); }
  void Visit(const brixDot& /*dot*/) override { Add(1, 0); }
  void Visit(const CKelPolyface& face) override {
    const brixRunList runs(face.GetFaceList());
    std::size_t faces = 0;
    for (auto run = runs.begin(); run != runs.end(); ++run) ++faces;
    Add(face.GetPoints().GetSize(), faces);
  }
  void Visit(const CKelPolygon& polygon) override { Add(polygon.GetPolyline().GetSize(), 1); }
  void Visit(const CKelPolyline& line) override { Add(line.GetPolyline().GetSize(), 0); }
  void Visit(const CKelPolyMesh& mesh) override {
    const auto cells = [](int points) { return static_cast<std::size_t>(std::max(points - 1, 0)); };
    Add(mesh.GetPoints().GetSize(), cells(mesh.GetRows()) * cells(mesh.GetColumns()));
  }
  void Visit(const CKelTriangleStrip& strip) override {
    Add(strip.GetPoints().GetSize(), Triangles(strip.GetPoints().GetSize()));
  }
  void Visit(const CKelMultipleTriangleStrip& strips) override {
    std::size_t faces = 0;
    for (const int count : strips.GetPointCounts().View()) faces += Triangles(static_cast<unsigned>(count));
    Add(strips.GetPoints().GetSize(), faces);
  }

  PartCounts Counts;

private:
  static std::size_t Triangles(std::size_t pointsOfAStrip) { return pointsOfAStrip > 2 ? pointsOfAStrip - 2 : 0; }

  void Add(std::size_t points, std::size_t faces) {
    Counts.Points += points;
    Counts.Faces += faces;
  }
};

using ClassCounts = std::map<const char*, std::uint64_t>;  // by the pointers that GetClassName gives

void CountGroup(const brixBaseGroup& group, const CKelTextureManager* textures, Census& census, ClassCounts& classes) {
  for (int i = 0; i < group.GetNumObjects(); ++i) {
    const brixBaseObject& object = *group.GetObjectAt(i);
    ++classes[object.GetClassName()];
    const PartCounts parts = CountParts(object);
    census.Points += parts.Points;
    census.Faces += parts.Faces;
    census.Triangles += object.CountTriangles(0.0);
    if (textures && textures->FindTextureCoordinate(object.GetId())) ++census.Textured;
  }
  census.Groups += static_cast<std::uint64_t>(group.GetNumGroups());
  for (int i = 0; i < group.GetNumGroups(); ++i) CountGroup(*group.GetGroupAt(i), textures, census, classes);
}

}  // namespace

PartCounts CountParts(const brixBaseObject& object) {
  PartCounter counter;
  object.Accept(counter);
  return counter.Counts;
}

Census CountModel(const CKelWorld& world) {
  Census census;
  ClassCounts classes;
  CountGroup(world, world.GetTextureManager(), census, classes);
  for (const auto& [name, count] : classes) {
    census.Objects += count;
    census.Classes[name] += count;
  }
  return census;
}
