#include "host/fuzz/randomnumbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

namespace brvhost {
namespace {

// The first numbers of SplitMix64 for this seed, as its users publish them.
TEST(RandomNumbers, AreThoseOfTheAlgorithm) {
  RandomNumbers random(1234567);
  for (const std::uint64_t number : {6457827717110365317U, 3203168211198807973U, 9817491932198370423U,
                                     4593380528125082431U, 16408922859458223821U}) {
    EXPECT_EQ(random.Next(), number);
  }
}

TEST(RandomNumbers, BelowACountAreTheUpperBitsOfANumber) {
  RandomNumbers random(1234567);
  EXPECT_EQ(random.Below(1000), 350) << "6457827717110365317 / 2^64 = 0.35007...";
  EXPECT_EQ(random.Below(1000), 173) << "3203168211198807973 / 2^64 = 0.17364...";
  EXPECT_EQ(random.Below(1), 0);
}

TEST(RandomNumbers, ReachBothEndsOfARange) {
  RandomNumbers random(1);
  std::set<int> numbers;
  for (int i = 0; i < 1000; ++i) numbers.insert(random.Between(-2, 2));
  EXPECT_EQ(numbers, (std::set<int>{-2, -1, 0, 1, 2}));
}

TEST(RandomNumbers, ThatAreSmallAreAbove0AndReachThePowerOfTwo) {
  RandomNumbers random(1);
  std::set<int> numbers;
  for (int i = 0; i < 1000; ++i) numbers.insert(random.Small(2));
  EXPECT_EQ(numbers, (std::set<int>{1, 2, 3, 4}));
}

}  // namespace
}  // namespace brvhost
