#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brix/groups/brixBaseObject.h"
#include "qelvrml/platform/brixex/CKelWorld.h"
#include "support/CheckModel.h"

/// A folder of its own that goes with this object.
class TemporaryFolder {
public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();
  const std::filesystem::path& Path() const { return Folder; }
  /// Writes a file and gives its path.
  std::string Write(const std::string& name, const std::string& bytes) const;

private:
  std::filesystem::path Folder;
};

/// What a load has left; numbers of objects are read in the units of the file.
class Model {
public:
  VRMLLoadResultTypes Result = VRMLLoadFailed;
  std::unique_ptr<CKelWorld> World = std::make_unique<CKelWorld>();
  std::unique_ptr<CVRMLParser> Parser = std::make_unique<CVRMLParser>();

  VRMLImageUnitsTypes Units() const { return Parser->GetImageUnits(); }
  /// All objects, a group's own before those of its groups.
  std::vector<const brixBaseObject*> Objects() const;
  std::size_t Size() const { return Objects().size(); }
  const brixBaseObject& Object(std::size_t index) const;
  /// Names of the classes of all objects, such as "brixBox brixDisk".
  std::string Classes() const;
  /// The group of that name anywhere in the model, or null.
  const brixBaseGroup* Group(const std::string& name) const;

  /// The points of an object that holds points, in the units of the file.
  std::vector<brixFloatPoint> Points(std::size_t index) const;
  brixFloatPoint Centre(std::size_t index) const;
  /// The extents of an object, in the units of the file.
  brixFloatPoint Extents(std::size_t index) const;
  brixChroma Diffuse(std::size_t index) const;
  std::string Name(std::size_t index) const;
  /// Triangles as the object's evaluation gives them, and their area in the units of the file.
  std::size_t Triangles(std::size_t index) const;
  double Area(std::size_t index) const;
  /// Result, unit, sizes of textures, groups and all objects with their materials and textures, as a text.
  std::string Describe() const;

private:
  float Unscale() const;
};

/// Loads a scene's text, with a header of version 1.0 unless it has one, and checks the model.
Model Load(const std::string& scene);
Model Load20(const std::string& scene);
/// Loads the file, and checks the model.
Model LoadFile(const std::string& path);
/// Loads a text as it stands.
Model LoadBytes(const std::string& bytes);

/// Asserts what holds for every model.
void CheckModel(const CKelWorld& world);

std::string ToString(const brixWRope& name);

/// Matches a point, vector or colour within a tolerance for single precision.
testing::Matcher<const brixFloatPoint&> IsPoint(float x, float y, float z);
testing::Matcher<const brixChroma&> IsColour(float red, float green, float blue, float alpha = 1.0F);
void PrintTo(const brixFloatPoint& point, std::ostream* stream);
void PrintTo(const brixChroma& colour, std::ostream* stream);
