// Each allocation of a load fails once: the load ends in an exception or goes on, and nothing leaks or is torn.

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <new>

#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/CBasicMap.h"
#include "support/Model.h"

namespace {

std::atomic<long> AllocationsLeft = -1;  // -1: all succeed

void* Allocate(std::size_t size) noexcept {
  if (AllocationsLeft >= 0 && AllocationsLeft-- == 0) return nullptr;
  return std::malloc(size == 0 ? 1 : size);
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* block = Allocate(size)) return block;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return Allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { std::free(block); }

namespace {

TEST(Allocation, EachOneMayFail) {
  const std::string path = QELVRML_TEST_SCENES "/short-of-memory.wrl";
  const std::size_t whole = LoadFile(path).Size();
  bool finished = false;
  for (long n = 0; !finished; ++n) {
    SCOPED_TRACE(n);
    CKelWorld world;
    CVRMLParser parser;
    const CBasicString name(path.c_str());
    AllocationsLeft = n;
    try {
      parser.Parse(&world, name);
    } catch (const std::bad_alloc&) {
    }
    finished = AllocationsLeft > 0;  // there were no more allocations to fail
    AllocationsLeft = -1;
    EXPECT_EQ(FindFault(world), "");
    EXPECT_EQ(parser.GetSeparatorStack()->GetCount(), 0);
    // The parser is still good for another load.
    CKelWorld again;
    EXPECT_EQ(parser.Parse(&again, name), VRMLLoadOK);
    EXPECT_EQ(FindFault(again), "");
    ASSERT_LT(n, 100000);
  }
  EXPECT_GT(whole, 8U);
}

bool RaisesWithoutMemory(const std::function<void()>& operation) {
  AllocationsLeft = 0;
  try {
    operation();
  } catch (const std::bad_alloc&) {
    AllocationsLeft = -1;
    return true;
  }
  AllocationsLeft = -1;
  return false;
}

// Lists and maps report it; only an iterator that can't be attached raises.
TEST(Allocation, ListsReportThatThereIsNoMemory) {
  int value = 1;
  CBasicMap map;
  const auto fails = [](auto operation) { return !RaisesWithoutMemory([&] { ASSERT_FALSE(operation()); }); };
  EXPECT_TRUE(fails([&] { return map.AddTail(&value); }));
  EXPECT_TRUE(fails([&] { return map.AddHash(1, &value); }));
  ASSERT_TRUE(map.AddHash(1, &value));
  EXPECT_TRUE(fails([&] { return map.AddHash(2, &value); }));
  EXPECT_TRUE(fails([&] { return map.GetAt(0); }));
  EXPECT_TRUE(RaisesWithoutMemory([&] { const CBasicListIterator iterator(&map); }));
  ASSERT_EQ(map.GetCount(), 1);
  {
    CBasicListIterator iterator(&map);
    EXPECT_FALSE(RaisesWithoutMemory([&] { map.RemoveHash(1); }));
    EXPECT_EQ(iterator.GetData(), nullptr);
  }
  map.SetIntegerElements();
  EXPECT_TRUE(fails([&] { return map.AddTailValue(&value); }));
}

}  // namespace
