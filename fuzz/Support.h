#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "qelvrml/parser/CVRMLParser.h"

/// What libFuzzer, or ReplayMain.cpp in its place, calls with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Tells what is wrong and ends the process, unless `holds`.
void Require(bool holds, std::string_view what);

/// A folder of this process alone, in memory where the system has such a place; it goes at the end of the process.
/// An image, "tile.png", and a scene, "part.wrl", stand in it, for scenes that refer to files. It is also where packed
/// files are unpacked, so that those refer to the same files.
class Scratch {
public:
  Scratch();
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch();

  /// The one of this process.
  static const Scratch& Get();
  const std::filesystem::path& Folder() const { return Place; }
  /// Writes the file with that name anew and gives its path.
  std::string Write(const std::string& name, std::string_view bytes) const;

private:
  std::filesystem::path Place;
};

/// Decisions made by the bytes of an input, one by one; the first choice, 0, when there are no more.
class Choices {
public:
  Choices(const std::uint8_t* data, std::size_t size) : Next(data), End(data + size) {}

  bool Left() const { return Next != End; }
  unsigned Byte() { return Left() ? *Next++ : 0U; }
  /// From 0 up to but not including `count`.
  std::size_t Below(std::size_t count) { return Byte() % count; }
  /// One of a table.
  template <class Table>
  const auto& Of(const Table& table) {
    return table[Below(std::size(table))];
  }

private:
  const std::uint8_t* Next;
  const std::uint8_t* End;
};

/// What two loads of the same scene have in common.
struct ModelDigest {
  std::uint64_t Groups = 0;   ///< of the tree, with names, the order and the objects
  std::uint64_t Objects = 0;  ///< of the objects alone, whatever their groups, names and order
  int Result = 0;
  int Units = 0;
  std::size_t MissingFiles = 0;

  bool operator==(const ModelDigest&) const = default;
};

/// Loads a file into a new world, requires that the model and the parser are sound afterwards, and digests the model.
ModelDigest LoadAndDigest(CVRMLParser& parser, const std::string& path);
