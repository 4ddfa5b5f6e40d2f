#include "host/commands/optionvalues.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace brvhost {
namespace {

TEST(NumberFrom, ReadsTheNumbersWithinTheBounds) {
  EXPECT_EQ(NumberFrom("--n", "1", 1, 256), 1);
  EXPECT_EQ(NumberFrom("--n", "256", 1, 256), 256);
  EXPECT_EQ(NumberFrom("--n", "010", 1, 256), 10) << "decimal";
  EXPECT_EQ(NumberFrom("--n", "2147483647", 0, std::numeric_limits<int>::max()), 2147483647);
}

TEST(SizeFrom, CountsUnitsInStepsOf1024) {
  EXPECT_EQ(SizeFrom("--s", "1"), 1u);
  EXPECT_EQ(SizeFrom("--s", "500000"), 500'000u);
  EXPECT_EQ(SizeFrom("--s", "7B"), 7u);
  std::uint64_t bytes = 1;
  for (const char* const letter : {"K", "M", "G", "T"}) {
    bytes *= 1024;
    for (const char* const ending : {"", "B", "b", "iB", "IB"}) {
      EXPECT_EQ(SizeFrom("--s", std::string("3") + letter + ending), 3 * bytes) << letter << ending;
    }
  }
  EXPECT_EQ(SizeFrom("--s", "2 mb"), 2u << 20);
}

TEST(SizeFrom, ReadsTheLargestSizeInAnyUnit) {
  for (const char* const largest : {"1125899906842624", "1024TB", "1PB"}) {
    EXPECT_EQ(SizeFrom("--s", largest), std::uint64_t{1} << 50) << largest;
  }
}

}  // namespace
}  // namespace brvhost
