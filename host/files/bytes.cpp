#include "host/files/bytes.h"

#include <sys/mman.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace brvhost {
namespace {

// The size of a large page, where the system has them: a score of some megabytes takes thousands of small pages, and
// each stops the program when it is first touched.
constexpr std::size_t kLargePage = std::size_t{1} << 21;

// More than any machine has, and small enough for sums of sizes.
constexpr std::size_t kMaxBytes = std::size_t{1} << 60;

char* Allocate(std::size_t size) {
  if (size > kMaxBytes) return nullptr;
  if (size < kLargePage) return static_cast<char*>(std::malloc(size));
  const std::size_t rounded = (size + kLargePage - 1) / kLargePage * kLargePage;
  void* const memory = std::aligned_alloc(kLargePage, rounded);
#ifdef MADV_HUGEPAGE
  if (memory != nullptr) madvise(memory, rounded, MADV_HUGEPAGE);
#endif
  return static_cast<char*>(memory);
}

}  // namespace

Bytes::Bytes(std::size_t size) : memory_(Allocate(size == 0 ? 1 : size)), size_(size) {
  if (memory_ == nullptr) throw std::bad_alloc();
}

void Bytes::Grow(std::size_t count) {
  Bytes larger(size_ + count);
  if (size_ > 0) std::memcpy(larger.Data(), Data(), size_);
  *this = std::move(larger);
}

}  // namespace brvhost
