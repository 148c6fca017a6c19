#include "Dump.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "Failures.h"
#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/platform/brix/groups/brixObjectVisitor.h"
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
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "text/Json.h"
#include "text/Text.h"
#include "text/Units.h"

namespace {

Json ToJson(const brixFloatPoint& p) { return {Shortest(p.x), Shortest(p.y), Shortest(p.z)}; }
Json ToJson(const brixVector& v) { return {Shortest(v.x), Shortest(v.y), Shortest(v.z)}; }
Json ToJson(const brix2DFloatPoint& p) { return {Shortest(p.x), Shortest(p.y)}; }
Json ToJson(const brixChroma& c) { return {Shortest(c.red), Shortest(c.green), Shortest(c.blue), Shortest(c.alpha)}; }

template <class Element>
Json ToJson(std::span<const Element> elements) {
  Json list = Json::array();
  list.get_ref<Json::array_t&>().reserve(elements.size());
  for (const Element& element : elements) list.push_back(ToJson(element));
  return list;
}

Json ToJson(const brixMatrix4x4& m) {
  Json list = Json::array();
  for (std::size_t row = 0; row < 4; ++row) {
    for (const float element : m[row]) list.push_back(Shortest(element));
  }
  return list;
}

Json ToJson(const brixMatProps& material) {
  const brixMaterial& front = material.GetFrontMaterial();
  const auto colour = [&front](void (brixMaterial::*get)(brixChroma&) const) {
    brixChroma value;
    (front.*get)(value);
    return ToJson(value);
  };
  return {{"ambient", colour(&brixMaterial::GetAmbient)},
          {"diffuse", colour(&brixMaterial::GetDiffuse)},
          {"specular", colour(&brixMaterial::GetSpecular)},
          {"emission", colour(&brixMaterial::GetEmission)},
          {"shininess", Shortest(front.GetShininess())}};
}

Json ToJson(const CKelTextureCoordinate& mapping) {
  return {{"id", mapping.GetTextureID()},
          {"wrapS", static_cast<int>(mapping.GetTextureWrapS())},
          {"wrapT", static_cast<int>(mapping.GetTextureWrapT())},
          {"rotation", mapping.GetRotation()},
          {"scale", {Shortest(mapping.GetScale().S), Shortest(mapping.GetScale().T)}},
          {"coordinates", ToJson(mapping.GetCoordinates().View())}};
}

Json ToJson(const brixRunList& runs) {
  Json lists = Json::array();
  for (const brixRun& run : runs) lists.push_back(std::vector<int>(run.Indices.begin(), run.Indices.end()));
  return lists;
}

/// Adds the fields of an object by its class.
class FieldWriter : public brixObjectVisitor {
public:
  explicit FieldWriter(Json& object) : Object(object) {}

  void Visit(const brixCone& cone) override {
    Object["height"] = Shortest(cone.GetHeight());
    Object["bottomRadius"] = Shortest(cone.GetBottomRadius());
    Object["topRadius"] = Shortest(cone.GetTopRadius());
    Object["matrix"] = ToJson(cone.GetXformation());
  }
  void Visit(const brixCylinder& cylinder) override {
    Object["height"] = Shortest(cylinder.GetHeight());
    Object["radius"] = Shortest(cylinder.GetRadius());
    Object["matrix"] = ToJson(cylinder.GetXformation());
  }
  void Visit(const brixSphere& sphere) override {
    Object["radius"] = Shortest(sphere.GetRadius());
    Object["matrix"] = ToJson(sphere.GetXformation());
  }
  void Visit(const brixDisk& disk) override {
    Object["innerRadius"] = Shortest(disk.GetInnerRadius());
    Object["outerRadius"] = Shortest(disk.GetOuterRadius());
    Object["matrix"] = ToJson(disk.GetPlacement());
  }
  void Visit(const brixBox& box) override { Object["points"] = ToJson(box.GetCorners().View()); }
  void Visit(const brixDot& dot) override { Object["point"] = ToJson(dot.GetDot()); }
  void Visit(const CKelPolyface& face) override {
    Object["points"] = ToJson(face.GetPoints().View());
    Object["faces"] = ToJson(brixRunList(face.GetFaceList()));
  }
  void Visit(const CKelPolygon& polygon) override { Object["points"] = ToJson(polygon.GetPolyline().View()); }
  void Visit(const CKelPolyline& line) override { Object["points"] = ToJson(line.GetPolyline().View()); }
  void Visit(const CKelPolyMesh& mesh) override {
    Object["rows"] = mesh.GetRows();
    Object["columns"] = mesh.GetColumns();
    Object["points"] = ToJson(mesh.GetPoints().View());
  }
  void Visit(const CKelTriangleStrip& strip) override {
    Object["points"] = ToJson(strip.GetPoints().View());
    Object["normals"] = ToJson(strip.GetNormals().View());
  }
  void Visit(const CKelMultipleTriangleStrip& strips) override {
    Visit(static_cast<const CKelTriangleStrip&>(strips));
    const auto counts = strips.GetPointCounts().View();
    Object["counts"] = std::vector<int>(counts.begin(), counts.end());
  }

private:
  Json& Object;
};

Json ObjectToJson(const brixBaseObject& object, const CKelTextureManager* textures) {
  Json result = {{"type", object.GetClassName()},
                 {"name", ToUtf8(object.GetObjectName().GetText())},
                 {"material", ToJson(object.GetMatProps())}};
  if (const CKelTextureCoordinate* mapping = textures ? textures->FindTextureCoordinate(object.GetId()) : nullptr) {
    result["texture"] = ToJson(*mapping);
  }
  FieldWriter writer(result);
  object.Accept(writer);
  return result;
}

Json GroupToJson(const brixBaseGroup& group, const CKelTextureManager* textures) {
  Json objects = Json::array();
  Json groups = Json::array();
  for (int i = 0; i < group.GetNumObjects(); ++i) objects.push_back(ObjectToJson(*group.GetObjectAt(i), textures));
  for (int i = 0; i < group.GetNumGroups(); ++i) groups.push_back(GroupToJson(*group.GetGroupAt(i), textures));
  return {
      {"name", ToUtf8(group.GetGroupName().GetText())}, {"objects", std::move(objects)}, {"groups", std::move(groups)}};
}

Json TexturesToJson(const CKelTextureManager* textures) {
  Json list = Json::array();
  for (int i = 0; textures && i < textures->GetNumberTextures(); ++i) {
    const CKelTexture& texture = *textures->GetTextureAt(i);
    list.push_back({{"id", texture.GetTextureID()},
                    {"name", std::filesystem::path(ToUtf8(texture.GetFilename())).filename().string()},
                    {"width", texture.GetWidth()},
                    {"height", texture.GetHeight()}});
  }
  return list;
}

}  // namespace

void Dump(const LoadedFile& file) {
  const EndWhenOutOfMemory guard;
  const CKelTextureManager* textures = file.World->GetTextureManager();
  Json model = {{"result", ResultName(file.Result)},
                {"units", UnitsName(file.Units)},
                {"warning", file.Warning},
                {"world", GroupToJson(*file.World, textures)},
                {"textures", TexturesToJson(textures)}};
  AddNotes(file, model);
  std::cout << model << '\n';
}
