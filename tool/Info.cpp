#include "Info.h"

#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <string_view>

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

constexpr int LabelWidth = 28;

/// What a model holds, counted.
struct Census {
  std::map<const char*, int> Objects;  ///< by the name of the class, as GetClassName gives it
  int Groups = 0;
  std::size_t Points = 0;
  std::size_t Faces = 0;
  std::size_t Triangles = 0;
  int Textured = 0;
};

/// Points and faces as an object holds them; those of surfaces of revolution are computed when it is drawn.
class PartCounter : public brixObjectVisitor {
public:
  explicit PartCounter(Census& census) : Counts(census) {}

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

private:
  static std::size_t Triangles(std::size_t pointsOfAStrip) { return pointsOfAStrip > 2 ? pointsOfAStrip - 2 : 0; }

  void Add(std::size_t points, std::size_t faces) {
    Counts.Points += points;
    Counts.Faces += faces;
  }

  Census& Counts;
};

void Count(const brixBaseGroup& group, const CKelTextureManager* textures, Census& census) {
  PartCounter counter(census);
  for (int i = 0; i < group.GetNumObjects(); ++i) {
    const brixBaseObject& object = *group.GetObjectAt(i);
    ++census.Objects[object.GetClassName()];
    object.Accept(counter);
    census.Triangles += object.CountTriangles(0.0);
    if (textures && textures->FindTextureCoordinate(object.GetId())) ++census.Textured;
  }
  census.Groups += group.GetNumGroups();
  for (int i = 0; i < group.GetNumGroups(); ++i) Count(*group.GetGroupAt(i), textures, census);
}

template <class Value>
void Line(const std::string& label, const Value& value) {
  std::cout << std::left << std::setw(LabelWidth) << label << value << '\n';
}

std::string Extent(const brixBBox& box, const std::string& units) {
  if (box.IsEmpty()) return "empty";
  const brixFloatPoint& from = box.GetMinimum();
  const brixFloatPoint& to = box.GetMaximum();
  std::ostringstream text;
  text << to.x - from.x << " x " << to.y - from.y << " x " << to.z - from.z << ' ' << units;
  return text.str();
}

std::string WarningText(int warning) {
  if (warning == VRMLWarningNone) return "none";
  if (warning == VRMLWarningExtrusionData) return "1, an extrusion lacks a spine or a cross-section";
  return std::to_string(warning);
}

void PrintTextures(const CKelTextureManager* textures, const Census& census) {
  Line("textures", textures ? textures->GetNumberTextures() : 0);
  for (int i = 0; textures && i < textures->GetNumberTextures(); ++i) {
    const CKelTexture& texture = *textures->GetTextureAt(i);
    const std::string name = ToUtf8(texture.GetFilename().GetWideText());
    std::ostringstream size;
    size << texture.GetWidth() << " x " << texture.GetHeight() << " pixels";
    Line("  " + (name.empty() ? std::string("pixels of the file") : name) + "  ", size.str());
  }
  if (census.Textured > 0) Line("textured objects", census.Textured);
}

}  // namespace

void PrintInfo(const LoadedFile& file) {
  const CKelTextureManager* textures = file.World->GetTextureManager();
  Census census;
  Count(*file.World, textures, census);
  int objects = 0;
  std::map<std::string_view, int> classes;
  for (const auto& [name, count] : census.Objects) {
    objects += count;
    classes[name] += count;
  }

  Line("file", file.Path);
  Line("result", ResultName(file.Result));
  Line("units", UnitsName(file.Units));
  Line("warning", WarningText(file.Warning));
  // A load that gave something has left the boxes up to date.
  Line("size", Extent(file.World->GetBBox(), UnitsName(file.Units)));
  Line("groups", census.Groups);
  Line("objects", objects);
  for (const auto& [name, count] : classes) Line("  " + std::string(name), count);
  Line("points", census.Points);
  Line("faces", census.Faces);
  Line("triangles", census.Triangles);
  PrintTextures(textures, census);
  for (const std::string& name : file.MissingFiles) Line("not found", name);
  std::ostringstream time;
  time << std::fixed << std::setprecision(1) << file.Seconds * 1000.0 << " ms";
  Line("time", time.str());
}
