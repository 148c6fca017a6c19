#include "foundation/BlockPool.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <utility>

namespace qelvrml {

#if defined(__SANITIZE_ADDRESS__)
#define QELVRML_PLAIN_BLOCKS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QELVRML_PLAIN_BLOCKS
#endif
#endif

#ifdef QELVRML_PLAIN_BLOCKS

void* BlockPool::Allocate(std::size_t size) noexcept {
  return std::malloc(size);
}
void BlockPool::Free(void* block, std::size_t /*size*/) noexcept {
  std::free(block);
}

#else

namespace {

constexpr std::size_t Granule = 16;
constexpr std::size_t ClassCount = BlockPool::LargestBlock / Granule;
constexpr std::size_t ChunkBytes = 64 * 1024;
constexpr std::size_t BatchBlocks = 512;  // what moves between a thread's stock and the common one at a time

struct FreeBlock {
  FreeBlock* Next;
};

/// A chain of free blocks with its length.
struct Stock {
  FreeBlock* First = nullptr;
  std::size_t Count = 0;

  void Push(FreeBlock* block) {
    block->Next = First;
    First = block;
    ++Count;
  }
  FreeBlock* Pop() {
    FreeBlock* block = First;
    First = block->Next;
    --Count;
    return block;
  }
};

/// What the threads share. It is never destroyed, for objects with static storage may free their blocks late.
class CommonStock {
public:
  static CommonStock& Get() {
    static CommonStock& common = *new CommonStock;
    return common;
  }

  /// Moves up to a batch of blocks of a class into `stock`; a new chunk is cut up when there are none.
  void Fill(Stock& stock, std::size_t sizeClass) {
    const std::scoped_lock lock(Mutex);
    Stock& common = Stocks[sizeClass];
    if (!common.First) CutChunk(common, (sizeClass + 1) * Granule);
    for (std::size_t i = 0; i < BatchBlocks && common.First; ++i) stock.Push(common.Pop());
  }

  void TakeBack(Stock& stock, std::size_t sizeClass, std::size_t count) {
    const std::scoped_lock lock(Mutex);
    for (std::size_t i = 0; i < count && stock.First; ++i) Stocks[sizeClass].Push(stock.Pop());
  }

private:
  static void CutChunk(Stock& stock, std::size_t blockBytes) {
    auto* chunk = static_cast<std::byte*>(std::malloc(ChunkBytes));
    if (!chunk) return;
    for (std::size_t end = ChunkBytes; end >= blockBytes; end -= blockBytes) {
      stock.Push(reinterpret_cast<FreeBlock*>(chunk + end - blockBytes));
    }
  }  // NOLINT(clang-analyzer-unix.Malloc): the blocks in the stock are the chunk

  std::mutex Mutex;
  std::array<Stock, ClassCount> Stocks;
};

struct ThreadStock {
  std::array<Stock, ClassCount> Stocks;

  ThreadStock() = default;
  ThreadStock(const ThreadStock&) = delete;
  ThreadStock& operator=(const ThreadStock&) = delete;
  ~ThreadStock() {
    for (std::size_t i = 0; i < ClassCount; ++i) CommonStock::Get().TakeBack(Stocks[i], i, SIZE_MAX);
  }
};

thread_local ThreadStock Mine;

constexpr std::size_t SizeClass(std::size_t size) {
  return size == 0 ? 0 : (size - 1) / Granule;
}

}  // namespace

void* BlockPool::Allocate(std::size_t size) noexcept {
  if (size > LargestBlock) return std::malloc(size);
  const std::size_t sizeClass = SizeClass(size);
  Stock& stock = Mine.Stocks[sizeClass];
  if (!stock.First) CommonStock::Get().Fill(stock, sizeClass);
  return stock.First ? stock.Pop() : nullptr;
}

void BlockPool::Free(void* block, std::size_t size) noexcept {
  if (!block) return;
  if (size > LargestBlock) {
    std::free(block);
    return;
  }
  const std::size_t sizeClass = SizeClass(size);
  Stock& stock = Mine.Stocks[sizeClass];
  stock.Push(static_cast<FreeBlock*>(block));
  if (stock.Count > 2 * BatchBlocks) CommonStock::Get().TakeBack(stock, sizeClass, BatchBlocks);
}

#endif

}  // namespace qelvrml
