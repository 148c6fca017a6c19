#pragma once

#include <cstdint>
#include <map>
#include <string_view>

#include "qelvrml/platform/brixex/CKelWorld.h"

/// What a model holds, counted.
struct Census {
  std::uint64_t Groups = 0;
  std::uint64_t Objects = 0;
  std::map<std::string_view, std::uint64_t> Classes;  ///< objects by the name of their class
  std::uint64_t Points = 0;
  std::uint64_t Faces = 0;
  std::uint64_t Triangles = 0;
  std::uint64_t Textured = 0;  ///< objects that have a texture
};

/// Points and faces as an object holds them. Surfaces of revolution hold none: theirs are computed when they are drawn.
struct PartCounts {
  std::uint64_t Points = 0;
  std::uint64_t Faces = 0;
};

PartCounts CountParts(const brixBaseObject& object);
/// Counts without evaluating anything: triangles come from the classes.
Census CountModel(const CKelWorld& world);
