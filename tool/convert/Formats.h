#pragma once

#include <string>

#include "scene/Shape.h"

/// A kind of file that scenes are written as.
struct Format {
  const char* Ending;    ///< of its files, such as "glb"
  const char* ExportId;  ///< by which assimp knows it; null for glTF
  bool HoldsLines = true;
  bool HoldsDots = true;
  bool HasMaterials = true;
  bool ColoursPoints = false;  ///< colours are those of points, for want of materials
};

/// The format of that ending, in any case; null if there is none.
const Format* FindFormat(const std::string& ending);

/// Whether files of the format hold such a shape.
bool Holds(const Format& format, const Shape& form);

/// The endings as a text: ".glb, .gltf, .obj, .stl and .ply".
std::string FormatEndings();
