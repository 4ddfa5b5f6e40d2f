#include "host/files/bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <string_view>
#include <utility>

namespace brvhost {
namespace {

TEST(Bytes, AreNotMoreThanMemoryHas) {
  EXPECT_THROW(Bytes(SIZE_MAX), std::bad_alloc);
  EXPECT_THROW(Bytes(std::size_t{1} << 63), std::bad_alloc);
}

TEST(Bytes, GrowAfterWhatIsThere) {
  Bytes bytes(3);
  std::ranges::copy(std::string_view("abc"), bytes.Data());
  bytes.Grow(2);
  EXPECT_EQ(bytes.Size(), 5u);
  EXPECT_EQ(bytes.View().substr(0, 3), "abc");
}

TEST(Bytes, GrowFromNone) {
  Bytes bytes(0);
  EXPECT_TRUE(bytes.IsEmpty());
  bytes.Grow(2);
  EXPECT_EQ(bytes.Size(), 2u);
}

TEST(Bytes, AreCutButNotLengthened) {
  Bytes bytes(3);
  bytes.Truncate(4);
  EXPECT_EQ(bytes.Size(), 3u);
  bytes.Truncate(1);
  EXPECT_EQ(bytes.Size(), 1u);
}

TEST(Bytes, AreNoneOnceTheyAreMovedAway) {
  Bytes bytes(3);
  const Bytes taken = std::move(bytes);
  EXPECT_TRUE(bytes.IsEmpty());
  EXPECT_EQ(taken.Size(), 3u);
}

}  // namespace
}  // namespace brvhost
