#include "convert/Formats.h"

#include <strings.h>

#include <array>

#include "CommandLine.h"

namespace {

constexpr std::array Formats = {
    Format{.Ending = "glb", .ExportId = nullptr},
    Format{.Ending = "gltf", .ExportId = nullptr},
    Format{.Ending = "obj", .ExportId = "obj"},
    Format{.Ending = "stl", .ExportId = "stlb", .HoldsLines = false, .HoldsDots = false, .HasMaterials = false},
    Format{.Ending = "ply", .ExportId = "ply", .HoldsLines = false, .HasMaterials = false, .ColoursPoints = true},
};
static_assert(Formats.size() == WrittenEndings.size());

}  // namespace

const Format* FindFormat(const std::string& ending) {
  for (const Format& format : Formats) {
    if (strcasecmp(format.Ending, ending.c_str()) == 0) return &format;
  }
  return nullptr;
}

bool Holds(const Format& format, const Shape& form) {
  if (!form.Triangles.empty()) return true;
  return form.Segments.empty() ? format.HoldsDots : format.HoldsLines;
}

std::string FormatEndings() {
  std::string text;
  for (std::size_t i = 0; i < Formats.size(); ++i) {
    if (i > 0) text += i + 1 < Formats.size() ? ", " : " and ";
    text += std::string(".") + Formats.at(i).Ending;
  }
  return text;
}
