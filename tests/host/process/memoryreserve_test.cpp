#include "host/process/memoryreserve.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <forward_list>
#include <future>
#include <memory>
#include <new>

#include "host/process/memorylimit.h"

namespace brvhost {
namespace {

constexpr std::size_t kMegabyte = 1 << 20;
// More than any bound allows here: where none holds, not all of the machine's memory is taken.
constexpr int kMaxPieces = 1000;

using Pieces = std::forward_list<std::unique_ptr<char[]>>;

// All that is allowed, down to pieces of a kilobyte.
Pieces TakeAll() {
  Pieces pieces;
  for (std::size_t size = kMegabyte; size >= 1024; size /= 2) {
    try {
      for (int i = 0; i < kMaxPieces; ++i) pieces.emplace_front(new char[size]);
    } catch (const std::bad_alloc&) {
    }
  }
  return pieces;
}

TEST(MemoryReserve, IsForTheThreadThatMadeIt) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer ends the program when memory runs out";
#endif
  ReserveMemory();
  const MemoryLimit limit(8 * kMegabyte, 1);
  const auto takeApart = [] { return std::async(std::launch::async, TakeAll).get(); };
  const Pieces taken = takeApart();
  EXPECT_FALSE(taken.empty());
  EXPECT_NO_THROW(std::make_unique<char[]>(kMegabyte / 2));
  EXPECT_THROW(std::make_unique<char[]>(4 * kMegabyte), std::bad_alloc);
}

}  // namespace
}  // namespace brvhost
