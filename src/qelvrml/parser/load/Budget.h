#pragma once

#include <cstdint>

#include "qelvrml/parser/Limits.h"

class CVRMLParser;

namespace qelvrml {

/// What a load may still make, in bytes: a fixed amount, and more for each byte that is read.
class Budget {
public:
  void AddInput(std::uint64_t bytes) { Allowed += bytes * BytesMadeOfAByte; }
  /// Takes the bytes; false, and nothing is taken, if there aren't that many left.
  bool Spend(std::uint64_t bytes) {
    if (bytes > Allowed - Spent) return false;
    Spent += bytes;
    return true;
  }

private:
  std::uint64_t Allowed = BytesMadeOfAnyFile;
  std::uint64_t Spent = 0;
};

/// What a node is about to make, or a replay to do.
struct Making {
  std::uint64_t Objects = 0;  ///< of the model
  std::uint64_t Points = 0;   ///< in all objects together; normals count as points
  std::uint64_t Indices = 0;
  std::uint64_t Pixels = 0;
  std::uint64_t Replays = 0;       ///< of entries and instances
  std::uint64_t ExpandedText = 0;  ///< bytes of the text of an instance
};

/// Takes what something costs from the budget of the load at hand. False if that isn't enough: then nothing is made.
/// Outside a load everything can be made: it is the host's own.
bool CanMake(CVRMLParser& parser, const Making& making);

}  // namespace qelvrml
