#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

#include "qelvrml/platform/brix/ArrayWriter.h"
#include "qelvrml/platform/brix/brixArray1D.h"

namespace {

/// An element of another size, so that room for the elements comes to an end in other places.
struct Wide {
  Wide() = default;
  explicit Wide(int value) : Last(value) {}
  bool operator==(const Wide& other) const { return Last == other.Last; }
  double First[4] = {};  // NOLINT(*-avoid-c-arrays)
  int Last = 0;
};

// Whatever is done to one of some arrays that are copies of one another, each stays what a vector would be.
template <class T>
void CheckOperations(unsigned seed) {
  std::mt19937 random(seed);
  std::vector<brixArray1D<T>> arrays(4);
  std::vector<std::vector<T>> expected(4);
  for (int step = 0; step < 20'000 && !testing::Test::HasFailure(); ++step) {
    const std::size_t i = random() % 4;
    const std::size_t other = random() % 4;
    const auto value = static_cast<T>(step);
    brixArray1D<T>& array = arrays[i];
    std::vector<T>& list = expected[i];
    const auto operation = random() % 9;
    const auto small = static_cast<std::size_t>(random() % 40);
    if (operation == 0 || list.size() > 500) {
      array = arrays[other];
      list = expected[other];
    } else if (operation == 1) {
      for (std::size_t k = 0; k < small; ++k) array.Append(value);
      list.resize(list.size() + small, value);
    } else if (operation == 2) {
      qelvrml::ArrayWriter<T> writer(array);
      for (std::size_t k = 0; k < small; ++k) writer.Add(value);
      list.resize(list.size() + small, value);
      ASSERT_EQ(writer.GetCount(), list.size());
      if (!list.empty()) writer[small / 2 % list.size()] = list[small / 2 % list.size()] = static_cast<T>(-step);
    } else if (operation == 3) {
      array.Trim();
    } else if (operation == 4) {
      array.Realloc(static_cast<int>(small), brixTrue);
      list.resize(small);
    } else if (operation == 5 && !list.empty()) {
      array.Edit().back() = list.back() = value;
    } else if (operation == 6 && !list.empty()) {
      T& element = array[small % list.size()];
      arrays[other] = array;
      expected[other] = list;
      element = list[small % list.size()] = value;
    } else if (operation == 7) {
      array.Assign(expected[other]);
      list = expected[other];
    } else if (operation == 8 && !list.empty()) {
      array.Append(std::as_const(array)[0]);
      list.push_back(list[0]);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      const std::vector<T> values(arrays[k].View().begin(), arrays[k].View().end());
      ASSERT_TRUE(values == expected[k]) << "array " << k << " behind operation " << operation << " on " << i;
    }
  }
}

TEST(Array, CopiesStayWhatTheyAre) {
  CheckOperations<char>(1);
  CheckOperations<int>(2);
  CheckOperations<Wide>(3);
}

}  // namespace
