#include "qelvrml/foundation/BlockPool.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>
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

void* BlockPool::Allocate(std::size_t size) noexcept { return std::malloc(size); }
void BlockPool::Free(void* block, std::size_t /*size*/) noexcept { std::free(block); }

#else

namespace {

constexpr std::size_t Granule = 16;
constexpr std::size_t ClassCount = BlockPool::LargestBlock / Granule;
constexpr std::size_t ChunkBytes = 64 * 1024;
constexpr std::size_t BatchBlocks = 512;  // what moves between a thread's stock and the common one at a time

struct FreeBlock {
  FreeBlock* Next;       ///< of the same batch
  FreeBlock* NextBatch;  ///< of the first block of a batch in the common stock
};

/// A chain of free blocks with the number of those that were given back since a batch was taken.
struct Chain {
  FreeBlock* First = nullptr;
  std::size_t Count = 0;

  void Push(void* block) {
    First = new (block) FreeBlock{First, nullptr};
    ++Count;
  }
  void* Pop() {
    FreeBlock* block = First;
    First = block->Next;
    Count -= Count > 0 ? 1 : 0;
    return block;
  }
};

/// The free blocks of one size that a thread has: those that were given back, and the rest of a chunk.
struct Stock {
  Chain Returned;
  std::byte* Rest = nullptr;
  std::byte* RestEnd = nullptr;
};

/// What the threads share. It is never destroyed, for objects with static storage may free their blocks late.
class CommonStock {
public:
  static CommonStock& Get() {
    static CommonStock& common = *new CommonStock;
    return common;
  }

  /// Gives a thread that has no block left a batch of returned ones, or else a new chunk.
  void Fill(Stock& stock, std::size_t sizeClass) {
    const std::scoped_lock lock(Mutex);
    FreeBlock*& batches = Batches[sizeClass];
    if (batches) {
      stock.Returned.First = std::exchange(batches, batches->NextBatch);
      return;
    }
    stock.Rest = static_cast<std::byte*>(std::malloc(ChunkBytes));
    stock.RestEnd = stock.Rest ? stock.Rest + ChunkBytes : nullptr;
  }

  /// Takes all blocks of a chain back, as one batch.
  void TakeBack(Chain& chain, std::size_t sizeClass) {
    if (!chain.First) return;
    const std::scoped_lock lock(Mutex);
    chain.First->NextBatch = Batches[sizeClass];
    Batches[sizeClass] = chain.First;
    chain = {};
  }

private:
  std::mutex Mutex;
  std::array<FreeBlock*, ClassCount> Batches{};
};

constexpr std::size_t SizeClass(std::size_t size) { return size == 0 ? 0 : (size - 1) / Granule; }
constexpr std::size_t BlockBytes(std::size_t sizeClass) { return (sizeClass + 1) * Granule; }

// A block costs no call for its thread's stock: the library's few words have a fixed place in each thread.
[[gnu::tls_model("initial-exec")]] thread_local constinit std::array<Stock, ClassCount> Stocks{};

bool HasRest(const Stock& stock, std::size_t blockBytes) {
  return static_cast<std::size_t>(stock.RestEnd - stock.Rest) >= blockBytes;
}

void* TakeRest(Stock& stock, std::size_t blockBytes) {
  void* block = stock.Rest;
  stock.Rest += blockBytes;
  return block;
}

/// Hands a thread's free blocks on when the thread ends.
struct StockReturner {
  StockReturner() = default;
  StockReturner(const StockReturner&) = delete;
  StockReturner& operator=(const StockReturner&) = delete;
  ~StockReturner() {
    for (std::size_t i = 0; i < ClassCount; ++i) {
      while (HasRest(Stocks[i], BlockBytes(i))) Stocks[i].Returned.Push(TakeRest(Stocks[i], BlockBytes(i)));
      CommonStock::Get().TakeBack(Stocks[i].Returned, i);
    }
  }
  void Touch() const {}
};

void* AllocateFromCommon(Stock& stock, std::size_t sizeClass) noexcept {
  thread_local const StockReturner returner;
  returner.Touch();
  CommonStock::Get().Fill(stock, sizeClass);
  if (stock.Returned.First) return stock.Returned.Pop();
  return HasRest(stock, BlockBytes(sizeClass)) ? TakeRest(stock, BlockBytes(sizeClass)) : nullptr;
}

}  // namespace

void* BlockPool::Allocate(std::size_t size) noexcept {
  if (size > LargestBlock) return std::malloc(size);
  const std::size_t sizeClass = SizeClass(size);
  Stock& stock = Stocks[sizeClass];
  if (stock.Returned.First) return stock.Returned.Pop();
  if (HasRest(stock, BlockBytes(sizeClass))) return TakeRest(stock, BlockBytes(sizeClass));
  return AllocateFromCommon(stock, sizeClass);
}

void BlockPool::Free(void* block, std::size_t size) noexcept {
  if (!block) return;
  if (size > LargestBlock) {
    std::free(block);
    return;
  }
  const std::size_t sizeClass = SizeClass(size);
  Chain& returned = Stocks[sizeClass].Returned;
  returned.Push(block);
  if (returned.Count >= BatchBlocks) CommonStock::Get().TakeBack(returned, sizeClass);
}

#endif

}  // namespace qelvrml
