#pragma once

#include <string>

/// A file that is made and not yet written.
struct MadeFile {
  std::string Path;
  std::string Bytes;
};
