#pragma once

#include <cstdint>
#include <string>

#include "Output.h"
#include "convert/Formats.h"
#include "scene/Scene.h"

/// What became of a scene that was to be written.
struct Exported {
  std::string Problem;          ///< why nothing was written; empty for success
  std::uint64_t Objects = 0;    ///< that were written
  std::uint64_t Triangles = 0;  ///< of these
  std::uint64_t LeftOut = 0;    ///< objects that the format can't hold
  std::uint64_t Bytes = 0;      ///< of all files
};

/// Writes a scene, which isn't empty, to the file `path` and those beside it that the format takes. A failure leaves
/// none of them.
Exported ExportScene(const Scene& scene, const Format& format, const std::string& path, Existing existing);
