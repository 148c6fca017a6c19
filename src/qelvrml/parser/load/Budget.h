#pragma once

#include <cstdint>

#include "qelvrml/parser/Limits.h"

class CVRMLParser;

namespace qelvrml {

/// What a load may still make, in bytes and in steps: a fixed amount of both, and more for each byte that is read.
class Budget {
public:
  void AddInput(std::uint64_t bytes) {
    Bytes += bytes * BytesMadeOfAByte;
    Steps += bytes * StepsOfAByte;
  }
  /// Takes bytes and steps; false, and nothing is taken, if there aren't that many left of both.
  bool Spend(std::uint64_t bytes, std::uint64_t steps) {
    if (bytes > Bytes || steps > Steps) return false;
    Bytes -= bytes;
    Steps -= steps;
    return true;
  }

  bool HasBytes(std::uint64_t bytes) const { return bytes <= Bytes; }

  /// Takes steps that are done already, as far as there are any; false if there weren't enough.
  bool SpendDone(std::uint64_t steps) {
    const bool enough = steps <= Steps;
    Steps -= enough ? steps : Steps;
    return enough;
  }

private:
  std::uint64_t Bytes = BytesMadeOfAnyFile;
  std::uint64_t Steps = StepsOfAnyFile;
};

/// What a node is about to make, or a replay to do.
struct Making {
  std::uint64_t Objects = 0;  ///< of the model
  std::uint64_t Solids = 0;   ///< or what takes as long; two for a sphere
  std::uint64_t Points = 0;   ///< in all objects together; normals count as points
  std::uint64_t Indices = 0;
  std::uint64_t Pixels = 0;
  std::uint64_t Replays = 0;       ///< of entries and instances
  std::uint64_t ExpandedText = 0;  ///< bytes of the text of an instance, or of a file that is read again
  std::uint64_t Steps = 0;         ///< beside what these take
};

/// Takes what something costs from the budget of the load at hand. False if that isn't enough: then nothing is made.
/// Outside a load everything can be made: it is the host's own.
bool CanMake(CVRMLParser& parser, const Making& making);

/// Takes steps that were done before their number was known. False if the load didn't have that many: then what they
/// have made is dropped, and nothing else that takes steps is made.
bool PayForSteps(CVRMLParser& parser, std::uint64_t steps);

}  // namespace qelvrml
