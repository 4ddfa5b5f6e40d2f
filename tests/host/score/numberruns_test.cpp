#include "host/score/numberruns.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <climits>
#include <set>
#include <vector>

namespace brvhost {
namespace {

using Runs = std::vector<NumberRun>;

TEST(Merged, OrdersRunsAndJoinsThoseThatTouch) {
  EXPECT_EQ(Merged({{5, 8}, {1, 1}, {3, 3}}), (Runs{{1, 1}, {3, 3}, {5, 8}}));
  EXPECT_EQ(Merged({{4, 6}, {1, 3}, {5, 5}}), (Runs{{1, 6}}));
  EXPECT_EQ(Merged({{1, INT_MAX}, {3, 4}}), (Runs{{1, INT_MAX}}));
  EXPECT_EQ(Merged({}), Runs{});
}

RC_GTEST_PROP(Merged, HasTheSameNumbersWithGapsBetweenItsRuns, ()) {
  Runs runs;
  std::set<int> numbers;
  for (int i = *rc::gen::inRange(0, 6); i > 0; --i) {
    const int first = *rc::gen::inRange(1, 30);
    const int last = first + *rc::gen::inRange(0, 5);
    runs.push_back({first, last});
    for (int number = first; number <= last; ++number) numbers.insert(number);
  }
  std::set<int> merged;
  int end = -1;
  for (const NumberRun& run : Merged(runs)) {
    RC_ASSERT(run.first > end + 1);
    end = run.last;
    for (int number = run.first; number <= run.last; ++number) merged.insert(number);
  }
  RC_ASSERT(merged == numbers);
}

TEST(Contains, FindsTheNumbersOfAllRuns) {
  const Runs runs = {{2, 3}, {5, 5}};
  for (const int number : {2, 3, 5}) EXPECT_TRUE(Contains(runs, number)) << number;
  for (const int number : {1, 4, 6}) EXPECT_FALSE(Contains(runs, number)) << number;
}

TEST(TextOf, WritesARunOfOneNumberAsThatNumber) {
  EXPECT_EQ(TextOf(Runs{{1, 1}, {3, 3}, {5, 8}}), "1, 3, 5-8");
  EXPECT_EQ(TextOf(Runs{}), "");
}

}  // namespace
}  // namespace brvhost
