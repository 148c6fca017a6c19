// A host that loads files one after the other, each into a world of its own, and does nothing else with them.
//
//   load-only FILE...
//   load-only --model FILE...    prints the bytes of all points, normals and indices that the models hold

#include <cstdio>
#include <cstring>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
#include "qelvrml/platform/brix/solids/brixBox.h"
#include "qelvrml/platform/brix/solids/brixDot.h"
#include "qelvrml/platform/brixex/shapes/CKelMultipleTriangleStrip.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyMesh.h"
#include "qelvrml/platform/brixex/shapes/CKelPolyface.h"
#include "qelvrml/platform/brixex/shapes/CKelPolygon.h"

namespace {

class ByteCounter : public brixObjectVisitor {
public:
  void Visit(const brixBox& box) override { Add(box.GetCorners()); }
  void Visit(const brixDot& dot) override { Bytes += sizeof dot.GetDot(); }
  void Visit(const CKelPolyface& face) override {
    Add(face.GetPoints());
    Add(face.GetFaceList());
  }
  void Visit(const CKelPolygon& polygon) override { Add(polygon.GetPolyline()); }
  void Visit(const CKelPolyline& line) override { Add(line.GetPolyline()); }
  void Visit(const CKelPolyMesh& mesh) override { Add(mesh.GetPoints()); }
  void Visit(const CKelTriangleStrip& strip) override {
    Add(strip.GetPoints());
    Add(strip.GetNormals());
  }
  void Visit(const CKelMultipleTriangleStrip& strips) override { Visit(static_cast<const CKelTriangleStrip&>(strips)); }

  std::size_t GetBytes() const { return Bytes; }

private:
  template <class Array>
  void Add(const Array& array) {
    Bytes += array.View().size_bytes();
  }

  std::size_t Bytes = 0;
};

void CountGroup(const brixBaseGroup& group, ByteCounter& counter) {
  for (int i = 0; i < group.GetNumObjects(); ++i) group.GetObjectAt(i)->Accept(counter);
  for (int i = 0; i < group.GetNumGroups(); ++i) CountGroup(*group.GetGroupAt(i), counter);
}

}  // namespace

int main(int argc, char** argv) {
  const bool counting = argc > 1 && std::strcmp(argv[1], "--model") == 0;
  ByteCounter counter;
  for (int i = counting ? 2 : 1; i < argc; ++i) {
    CKelWorld world;
    CVRMLParser parser;
    if (parser.Parse(&world, argv[i]) != VRMLLoadOK) {
      std::fprintf(stderr, "load-only: %s didn't load\n", argv[i]);
      return 1;
    }
    if (counting) CountGroup(world, counter);
  }
  if (counting) std::printf("%zu\n", counter.GetBytes());
}
