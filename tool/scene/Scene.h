#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Load.h"
#include "scene/Image.h"
#include "scene/Look.h"
#include "scene/Shape.h"

/// Something to be seen: an object, or several dots, lines or single polygons that stand beside each other in a group
/// and have one name and one look, as a single node of a file makes them by the thousand.
struct Part {
  std::string Name;   ///< UTF-8; may be empty
  std::string Class;  ///< of the objects, such as "brixCone"
  std::size_t Objects = 1;
  Look Surface;
  Shape Form;    ///< not empty
  brixBBox Box;  ///< around the objects; curved surfaces touch it, their triangles may not
};

/// Its name, else its class without what all classes begin with, such as "Cone".
std::string PartName(const Part& part);

/// A group of a scene.
struct SceneGroup {
  std::string Name;                ///< UTF-8; may be empty
  std::vector<std::size_t> Parts;  ///< indices of parts of the scene
  std::vector<SceneGroup> Groups;
};

/// A model as it is shown and handed on. Objects that give nothing to see are left out.
struct Scene {
  std::vector<Part> Parts;  ///< in the order of groups, those of a group ahead of those of the groups in it
  SceneGroup Root;
  std::vector<Image> Images;  ///< those that parts refer to
  VRMLImageUnitsTypes Units = VRMLUnitsMeters;

  bool IsEmpty() const { return Parts.empty(); }
};

Scene MakeScene(const LoadedFile& file, const Resolution& resolution);

/// Why a file gives an empty scene: what was wrong with it, else its first notes.
std::string WhyNothingToShow(const LoadedFile& file);
