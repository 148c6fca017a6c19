#pragma once

#include <span>
#include <string>
#include <string_view>

/// A file to be written.
struct OutputFile {
  std::string Path;
  std::string_view Bytes;  ///< of the caller, as long as the file isn't written
};

/// What happens to a file that is there already.
enum class Existing { Keep, Replace };

/// Writes files, the last one last: each one beside its place, to be renamed when all of them are whole, so that a
/// failure leaves nothing. Gives what went wrong, with the path that it went wrong with; empty for success. With
/// Existing::Keep a file that is there is such a failure.
std::string WriteFiles(std::span<const OutputFile> files, Existing existing);
