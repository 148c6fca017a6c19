#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

#include "qelvrml/platform/brix/brixArrays.h"

/// One run of a run list.
struct brixRun {
  std::span<const int> Indices;  ///< without the count
  int First;                     ///< position of the first index in the run list
};

/// Walks the runs of a run list: each is a count followed by that many indices. A count that is negative or goes beyond
/// the list is cut. The list stays as it is meanwhile.
class brixRunList {
public:
  /// Refers to `runs`, which is neither changed nor destroyed while it is walked.
  explicit brixRunList(const brixIntArray& runs) : Places(runs.View()) {}

  /// A place in the list, for a range-based `for`.
  class Iterator {
  public:
    /// At the count that stands at `place`; the size of `places` is the end.
    Iterator(std::span<const int> places, std::size_t place) : Places(places), Place(place) { FindCount(); }
    /// The run here; not at the end.
    brixRun operator*() const { return {Places.subspan(Place + 1, Count), static_cast<int>(Place + 1)}; }
    /// Goes on to the next run; not from the end.
    Iterator& operator++() {
      Place += Count + 1;
      FindCount();
      return *this;
    }
    /// Whether two iterators of one list stand at different places.
    bool operator!=(const Iterator& other) const { return Place != other.Place; }

  private:
    void FindCount() {
      if (Place == Places.size()) return;
      Count = std::min(static_cast<std::size_t>(std::max(Places[Place], 0)), Places.size() - Place - 1);
    }

    std::span<const int> Places;
    std::size_t Place;
    std::size_t Count = 0;  ///< of the run there
  };

  /// The first run, and behind the last one.
  /// @{
  Iterator begin() const { return {Places, 0}; }
  Iterator end() const { return {Places, Places.size()}; }
  /// @}

private:
  std::span<const int> Places;
};
