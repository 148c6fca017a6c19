// Dropping the points that an indexed set doesn't use. A few indices into many points are sorted, so that the cost goes
// by the indices and not by the points; else the points are marked.

#include <algorithm>
#include <vector>

#include "qelvrml/platform/brix/brixRunList.h"
#include "qelvrml/scene/CVRMLSeparator.h"

namespace {

constexpr std::size_t SortingGain = 16;  // points for each index above which sorting is quicker

bool IsInside(int index, std::size_t count) { return index >= 0 && static_cast<std::size_t>(index) < count; }

// The indices of the points in use, in rising order.
std::vector<int> SortUsed(const brixIntArray& runs, std::size_t pointCount) {
  std::vector<int> used;
  for (const brixRun& run : brixRunList(runs)) {
    std::copy_if(run.Indices.begin(), run.Indices.end(), std::back_inserter(used),
                 [pointCount](int index) { return IsInside(index, pointCount); });
  }
  std::sort(used.begin(), used.end());
  used.erase(std::unique(used.begin(), used.end()), used.end());
  return used;
}

std::vector<int> MarkUsed(const brixIntArray& runs, std::size_t pointCount) {
  std::vector<char> marks(pointCount);
  for (const brixRun& run : brixRunList(runs)) {
    for (const int index : run.Indices) {
      if (IsInside(index, pointCount)) marks[static_cast<std::size_t>(index)] = 1;
    }
  }
  const auto count = static_cast<std::size_t>(std::count(marks.begin(), marks.end(), 1));
  std::vector<int> used(count);
  if (count == pointCount) return used;  // all of them: nobody asks for the numbers
  int* place = used.data();
  for (std::size_t i = 0; i < pointCount; ++i) {
    if (marks[i] != 0) *place++ = static_cast<int>(i);
  }
  return used;
}

template <class NewIndex>
void RewriteIndices(brixIntArray& runs, std::size_t pointCount, NewIndex newIndex) {
  const brixIntArray old = runs;
  const std::span<int> places = runs.Edit();
  for (const brixRun& run : brixRunList(old)) {
    auto place = static_cast<std::size_t>(run.First);
    for (const int index : run.Indices) {
      if (IsInside(index, pointCount)) places[place] = newIndex(index);
      ++place;
    }
  }
}

}  // namespace

bool CVRMLSeparator::CompactVertices(brixFloatPointArray& points, brixIntArray& runs) {
  if (points.IsEmpty() || runs.IsEmpty()) return false;
  const std::size_t pointCount = points.GetSize();
  const bool sorting = runs.GetSize() < pointCount / SortingGain;
  const std::vector<int> used = sorting ? SortUsed(runs, pointCount) : MarkUsed(runs, pointCount);
  if (used.size() == pointCount) return false;

  brixFloatPointArray kept(static_cast<int>(used.size()));
  const auto pointAt = [all = points.View()](int index) { return all[static_cast<std::size_t>(index)]; };
  std::transform(used.begin(), used.end(), kept.Edit().begin(), pointAt);
  points = std::move(kept);
  if (sorting) {
    const auto place = [&used](int index) { return std::lower_bound(used.begin(), used.end(), index) - used.begin(); };
    RewriteIndices(runs, pointCount, [&place](int index) { return static_cast<int>(place(index)); });
  } else {
    std::vector<int> newIndices(pointCount);
    for (std::size_t i = 0; i < used.size(); ++i) newIndices[static_cast<std::size_t>(used[i])] = static_cast<int>(i);
    RewriteIndices(runs, pointCount, [&newIndices](int index) { return newIndices[static_cast<std::size_t>(index)]; });
  }
  return true;
}
