// Each allocation of a load fails once: the load ends in an exception or goes on, and nothing leaks or is torn.

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <new>

#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/CBasicMap.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Gzip.h"
#include "support/Model.h"

namespace {

std::atomic<long> AllocationsLeft = -1;  // -1: all succeed

bool MallocFails = false;  // the first blocks of arrays come from it too, and captured texts

bool FailsNow() { return AllocationsLeft >= 0 && AllocationsLeft-- == 0; }

}  // namespace

// The linker leads calls of the C library's functions here, and those of the names in front to the library.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void* __wrap_malloc(std::size_t size) { return MallocFails && FailsNow() ? nullptr : __real_malloc(size); }
void* __wrap_realloc(void* block, std::size_t size) { return FailsNow() ? nullptr : __real_realloc(block, size); }
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

void* Allocate(std::size_t size) noexcept { return FailsNow() ? nullptr : __real_malloc(size == 0 ? 1 : size); }

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
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { std::free(block); }

namespace {

void LoadInto(Model& model, const CBasicString& path) {
  model.World->GetTextureManager()->AddAlternatePath(QELVRML_TEST_SCENES);
  model.Result = model.Parser->Parse(model.World.get(), path);
}

// Loads a file twice on one parser and into one world, while the n-th allocation fails. A third load is like any other.
// False if there were fewer allocations.
bool LoadTwice(const CBasicString& path, long n) {
  SCOPED_TRACE(n);
  Model model;
  AllocationsLeft = n;
  for (int i = 0; i < 2; ++i) {
    try {
      LoadInto(model, path);
    } catch (const std::bad_alloc&) {
      EXPECT_LT(AllocationsLeft, 0);
    }
  }
  const bool failed = AllocationsLeft < 0;
  AllocationsLeft = -1;
  CheckModel(*model.World);
  EXPECT_EQ(model.Parser->GetSeparatorStack()->GetCount(), 0);
  model.World = std::make_unique<CKelWorld>();
  LoadInto(model, path);
  Model other;
  LoadInto(other, path);
  EXPECT_EQ(model.Describe(), other.Describe());
  EXPECT_GE(other.Size(), 2U);
  return failed;
}

TEST(Allocation, EachOneMayFail) {
  const TemporaryFolder folder;
  const std::string packed = folder.Write("packed", Gzip("#VRML V1.0 ascii\nDEF box Cube {} USE box"));
  setenv("TMPDIR", folder.Path().c_str(), 1);
  std::string numbers;  // enough of them for arrays to grow
  for (int i = 0; i < 48; ++i) numbers += std::to_string(i % 16) + (i % 3 == 2 ? ".5, " : " ");
  std::string text = R"(#VRML V1.0 ascii
    Coordinate3 { point [ % ] } DEF faces IndexedFaceSet { coordIndex [ % ] } USE faces Cube {}
    Material { diffuseColor [ % ] } ElevationGrid { xDimension 3 zDimension 9 xSpacing 1 zSpacing 1 height [ % ] })";
  for (std::size_t i = 0; (i = text.find('%')) != std::string::npos;) text.replace(i, 1, numbers);
  const std::string lists = folder.Write("lists.wrl", text);
  for (const CBasicString path : {QELVRML_TEST_SCENES "/short-of-memory.wrl", packed.c_str(), lists.c_str()}) {
    MallocFails = path == lists.c_str();
    for (long n = 0; !HasFailure() && LoadTwice(path, n); ++n) {
    }
  }
  MallocFails = false;
  std::filesystem::remove(lists);
  unsetenv("TMPDIR");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << "only the scene is left";
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
