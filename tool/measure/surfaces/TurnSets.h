#pragma once

#include <vector>

/// Sets of items that face one way or the other: each item is turned, or isn't, as compared with the root of its set.
class TurnSets {
public:
  /// Each item is a set by itself.
  explicit TurnSets(unsigned count);

  struct Place {
    unsigned Root;
    bool Turned;
  };
  Place Find(unsigned item);
  /// Joins the sets of two items of which one is to be turned, or isn't, to face the way that the other does.
  void Join(unsigned a, unsigned b, bool turned);
  /// Whether all that was said about the items of a set can be true.
  bool IsConsistent(unsigned root) const { return Consistent[root]; }

private:
  std::vector<unsigned> Parents;
  std::vector<bool> Turns;  ///< as compared with the parent
  std::vector<bool> Consistent;
};
