#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Damages scenes. The same seed and number give the same text.
class Mutation {
public:
  /// The scenes outlive this object and aren't empty.
  Mutation(const std::vector<std::string>& scenes, std::uint64_t seed) : Scenes(scenes), Seed(seed) {}

  /// A scene with one to four kinds of damage; the first numbers give each scene as it is.
  std::string Make(std::uint64_t number) const;

private:
  const std::vector<std::string>& Scenes;
  std::uint64_t Seed;
};
