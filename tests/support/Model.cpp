#include "support/Model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cmath>
#include <fstream>

#include "geometry/RunList.h"
#include "platform/brix/brixBox.h"
#include "platform/brix/brixCone.h"
#include "platform/brix/brixCylinder.h"
#include "platform/brix/brixDisk.h"
#include "platform/brix/brixDot.h"
#include "platform/brix/brixSphere.h"
#include "platform/brixex/CKelMultipleTriangleStrip.h"
#include "platform/brixex/CKelPolyMesh.h"
#include "platform/brixex/CKelPolyface.h"
#include "platform/brixex/CKelPolygon.h"

namespace {

void Collect(const brixBaseGroup& group, std::vector<const brixBaseObject*>& objects) {
  for (int i = 0; i < group.GetNumObjects(); ++i) objects.push_back(group.GetObjectAt(i));
  for (int i = 0; i < group.GetNumGroups(); ++i) Collect(*group.GetGroupAt(i), objects);
}

const brixBaseGroup* Find(const brixBaseGroup& group, const std::string& name) {
  if (ToString(group.GetGroupName()) == name) return &group;
  for (int i = 0; i < group.GetNumGroups(); ++i) {
    if (const brixBaseGroup* found = Find(*group.GetGroupAt(i), name)) return found;
  }
  return nullptr;
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

void CheckObject(const brixBaseObject& object) {
  EXPECT_NE(ClassOf(object), "") << "an object of no known class";
  EXPECT_EQ(object.GetMatProps().GetMode(), 2);
  const unsigned count = StoredPoints(object).GetSize();
  if (const auto* face = dynamic_cast<const CKelPolyface*>(&object)) {
    std::size_t places = 0;
    for (const qelvrml::Run& run : qelvrml::RunList(face->GetFaceList())) {
      places += run.Indices.size() + 1;
      for (const int index : run.Indices) ASSERT_LT(static_cast<unsigned>(index), count);
    }
    EXPECT_EQ(places, face->GetFaceList().GetSize());
  }
  if (const auto* mesh = dynamic_cast<const CKelPolyMesh*>(&object)) {
    EXPECT_EQ(static_cast<unsigned>(mesh->GetRows() * mesh->GetColumns()), count);
  }
  brixEvaluation evaluation;
  object.Evaluate(0.0, evaluation);
  EXPECT_TRUE(evaluation.Normals.empty() || evaluation.Normals.size() == evaluation.Points.size());
  for (const unsigned corner : evaluation.Triangles) ASSERT_LT(corner, evaluation.Points.size());
  for (const unsigned end : evaluation.Segments) ASSERT_LT(end, evaluation.Points.size());
}

void CheckGroup(const brixBaseGroup& group) {
  for (int i = 0; i < group.GetNumObjects(); ++i) CheckObject(*group.GetObjectAt(i));
  for (int i = 0; i < group.GetNumGroups(); ++i) {
    const brixBaseGroup& child = *group.GetGroupAt(i);
    EXPECT_GT(child.GetNumObjects() + child.GetNumGroups(), 0) << "an empty group is in the model";
    EXPECT_FALSE(child.GetGroupName().IsEmpty());
    CheckGroup(child);
  }
}

bool Near(float a, float b) {
  return std::fabs(a - b) <= 1e-5F * std::max({1.0F, std::fabs(a), std::fabs(b)});
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "qelvrml-test-XXXXXX").string();
  Folder = mkdtemp(pattern.data());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  std::filesystem::remove_all(Folder, error);
}

std::string TemporaryFolder::Write(const std::string& name, const std::string& bytes) const {
  const std::filesystem::path path = Folder / name;
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
  return path.string();
}

std::vector<const brixBaseObject*> Model::Objects() const {
  std::vector<const brixBaseObject*> objects;
  Collect(*World, objects);
  return objects;
}

const brixBaseObject& Model::Object(std::size_t index) const {
  return *Objects().at(index);
}

std::string Model::Classes() const {
  std::string names;
  for (const brixBaseObject* object : Objects()) names += (names.empty() ? "" : " ") + ClassOf(*object);
  return names;
}

const brixBaseGroup* Model::Group(const std::string& name) const {
  return Find(*World, name);
}

float Model::Unscale() const {
  switch (Units()) {
    case VRMLUnitsMicrons: return 1e-6F;
    case VRMLUnitsMillimeters: return 1e-3F;
    case VRMLUnitsCentimeters: return 1e-2F;
    default: return 1.0F;
  }
}

std::vector<brixFloatPoint> Model::Points(std::size_t index) const {
  const brixBaseObject& object = Object(index);
  const auto view = StoredPoints(object).View();
  std::vector<brixFloatPoint> points(view.begin(), view.end());
  if (const auto* dot = dynamic_cast<const brixDot*>(&object)) points.push_back(dot->GetDot());
  for (brixFloatPoint& p : points) p = {p.x * Unscale(), p.y * Unscale(), p.z * Unscale()};
  return points;
}

brixFloatPoint Model::Centre(std::size_t index) const {
  const brixBBox box = Object(index).ComputeBBox();
  const float half = Unscale() / 2.0F;
  const brixFloatPoint sum = box.GetMinimum() + box.GetMaximum();
  return {sum.x * half, sum.y * half, sum.z * half};
}

brixFloatPoint Model::Extents(std::size_t index) const {
  const brixBBox box = Object(index).ComputeBBox();
  const brixVector size(box.GetMinimum(), box.GetMaximum());
  return {size.x * Unscale(), size.y * Unscale(), size.z * Unscale()};
}

brixChroma Model::Diffuse(std::size_t index) const {
  brixChroma colour;
  Object(index).GetMatProps().GetFrontMaterial().GetDiffuse(colour);
  return colour;
}

std::string Model::Name(std::size_t index) const {
  return ToString(Object(index).GetObjectName());
}

std::size_t Model::Triangles(std::size_t index) const {
  brixEvaluation evaluation;
  Object(index).Evaluate(0.0, evaluation);
  return evaluation.Triangles.size() / 3;
}

double Model::Area(std::size_t index) const {
  brixEvaluation evaluation;
  Object(index).Evaluate(0.0, evaluation);
  double area = 0.0;
  for (std::size_t i = 0; i < evaluation.Triangles.size(); i += 3) {
    const brixFloatPoint& a = evaluation.Points[evaluation.Triangles[i]];
    const brixVector u(a, evaluation.Points[evaluation.Triangles[i + 1]]);
    const brixVector v(a, evaluation.Points[evaluation.Triangles[i + 2]]);
    area += CrossProduct(u, v).Length() / 2.0;
  }
  return area * Unscale() * Unscale();
}

Model Load(const std::string& scene) {
  return LoadBytes(scene.starts_with("#VRML") ? scene : "#VRML V1.0 ascii\n" + scene);
}

Model Load20(const std::string& scene) {
  return LoadBytes("#VRML V2.0 utf8\n" + scene);
}

Model LoadBytes(const std::string& bytes) {
  const TemporaryFolder folder;
  return LoadFile(folder.Write("scene.wrl", bytes));
}

Model LoadFile(const std::string& path) {
  Model model;
  model.Result = model.Parser->Parse(model.World.get(), CBasicString(path.c_str()));
  CheckModel(*model.World);
  return model;
}

void CheckModel(const CKelWorld& world) {
  CheckGroup(world);
}

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

std::string ToString(const brixWRope& name) {
  return CBasicString(name.GetText()).GetNarrowText();
}

testing::Matcher<const brixFloatPoint&> IsPoint(float x, float y, float z) {
  return testing::Truly([=](const brixFloatPoint& p) { return Near(p.x, x) && Near(p.y, y) && Near(p.z, z); });
}

testing::Matcher<const brixChroma&> IsColour(float red, float green, float blue, float alpha) {
  return testing::Truly([=](const brixChroma& c) {
    return Near(c.red, red) && Near(c.green, green) && Near(c.blue, blue) && Near(c.alpha, alpha);
  });
}

void PrintTo(const brixFloatPoint& p, std::ostream* stream) {
  *stream << '(' << p.x << ' ' << p.y << ' ' << p.z << ')';
}

void PrintTo(const brixChroma& c, std::ostream* stream) {
  *stream << '(' << c.red << ' ' << c.green << ' ' << c.blue << ' ' << c.alpha << ')';
}
