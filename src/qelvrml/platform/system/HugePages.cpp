#include "qelvrml/platform/system/HugePages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <memory>

namespace qelvrml {

void PreferHugePages(void* begin, std::size_t size) {
  constexpr std::size_t Worthwhile = std::size_t{4} << 20U;
  if (size < Worthwhile) return;
#ifdef MADV_HUGEPAGE
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  std::size_t left = size;
  if (std::align(page, page, begin, left)) madvise(begin, left / page * page, MADV_HUGEPAGE);
#endif
}

}  // namespace qelvrml
