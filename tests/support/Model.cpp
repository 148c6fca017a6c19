#include "support/Model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <cstdlib>

#include <cmath>
#include <fstream>
#include <sstream>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

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

void PrintGroups(const brixBaseGroup& group, std::ostream& stream) {
  stream << ' ' << ToString(group.GetGroupName()) << '(' << group.GetNumObjects();
  for (int i = 0; i < group.GetNumGroups(); ++i) PrintGroups(*group.GetGroupAt(i), stream);
  stream << ')';
}

void PrintMaterial(const brixMaterial& material, std::ostream& stream) {
  for (const auto get :
       {&brixMaterial::GetAmbient, &brixMaterial::GetDiffuse, &brixMaterial::GetSpecular, &brixMaterial::GetEmission}) {
    brixChroma colour;
    (material.*get)(colour);
    PrintTo(colour, &stream);
  }
  stream << material.GetShininess();
}

void PrintTexture(const CKelTextureCoordinate* mapping, std::ostream& stream) {
  if (!mapping) return;
  stream << " texture " << mapping->GetTextureID() << ' ' << mapping->GetTextureWrapS() << mapping->GetTextureWrapT()
         << ' ' << mapping->GetRotation() << ' ' << mapping->GetScale().S << ' ' << mapping->GetScale().T;
  for (const brix2DFloatPoint& point : mapping->GetCoordinates().View()) stream << ' ' << point.x << ' ' << point.y;
}

bool Near(float a, float b) { return std::fabs(a - b) <= 1e-5F * std::max({1.0F, std::fabs(a), std::fabs(b)}); }

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

const brixBaseObject& Model::Object(std::size_t index) const { return *Objects().at(index); }

std::string Model::Classes() const {
  std::string names;
  for (const brixBaseObject* object : Objects())
    names += std::string(names.empty() ? "" : " ") + object->GetClassName();
  return names;
}

const brixBaseGroup* Model::Group(const std::string& name) const { return Find(*World, name); }

float Model::Unscale() const {
  switch (Units()) {
    case VRMLUnitsMicrons: return 1e-6F;
    case VRMLUnitsMillimeters: return 1e-3F;
    case VRMLUnitsCentimeters: return 1e-2F;
    default: return 1.0F;
  }
}

std::vector<brixFloatPoint> Model::Points(std::size_t index) const {
  std::vector<brixFloatPoint> points = StoredPoints(Object(index));
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

std::string Model::Name(std::size_t index) const { return ToString(Object(index).GetObjectName()); }

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

std::string Model::Describe() const {
  std::ostringstream text;
  text << Result << ' ' << Units();
  const CKelTextureManager& textures = *World->GetTextureManager();
  for (int i = 0; i < textures.GetNumberTextures(); ++i)
    text << ' ' << textures.GetTextureAt(i)->GetWidth() << 'x' << textures.GetTextureAt(i)->GetHeight();
  PrintGroups(*World, text);
  for (std::size_t i = 0; i < Size(); ++i) {
    text << '\n' << Object(i).GetClassName() << ' ' << Name(i) << ' ' << Triangles(i) << ' ' << Area(i) << ' ';
    PrintMaterial(Object(i).GetMatProps().GetFrontMaterial(), text);
    PrintTexture(textures.FindTextureCoordinate(Object(i).GetId()), text);
    PrintTo(Extents(i), &text);
    for (const brixFloatPoint& point : Points(i)) PrintTo(point, &text);
  }
  return text.str();
}

Model Load(const std::string& scene) {
  return LoadBytes(scene.starts_with("#VRML") ? scene : "#VRML V1.0 ascii\n" + scene);
}

Model Load20(const std::string& scene) { return LoadBytes("#VRML V2.0 utf8\n" + scene); }

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

void CheckModel(const CKelWorld& world) { EXPECT_EQ(FindFault(world), ""); }

std::string ToString(const brixWRope& name) { return CBasicString(name.GetText()).GetNarrowText(); }

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
