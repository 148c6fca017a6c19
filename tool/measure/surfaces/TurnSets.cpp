#include "measure/surfaces/TurnSets.h"

#include <algorithm>
#include <numeric>

TurnSets::TurnSets(unsigned count) : Parents(count), Turns(count), Consistent(count, true) {
  std::iota(Parents.begin(), Parents.end(), 0U);
}

TurnSets::Place TurnSets::Find(unsigned item) {
  Place place = {item, false};
  while (Parents[place.Root] != place.Root) {
    place.Turned = place.Turned != Turns[place.Root];
    place.Root = Parents[place.Root];
  }
  bool turned = place.Turned;
  while (item != place.Root) {
    const unsigned parent = Parents[item];
    const bool wasTurned = Turns[item];
    Parents[item] = place.Root;
    Turns[item] = turned;
    turned = turned != wasTurned;
    item = parent;
  }
  return place;
}

void TurnSets::Join(unsigned a, unsigned b, bool turned) {
  const Place first = Find(a);
  const Place second = Find(b);
  const bool rootsDiffer = turned != (first.Turned != second.Turned);
  if (first.Root == second.Root) {
    if (rootsDiffer) Consistent[first.Root] = false;
    return;
  }
  const auto [root, child] = std::minmax(first.Root, second.Root);
  Parents[child] = root;
  Turns[child] = rootsDiffer;
  if (!Consistent[child]) Consistent[root] = false;
}
