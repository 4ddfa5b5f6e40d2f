#include "host/batch/timeleft.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

using namespace std::chrono_literals;

TEST(TimeLeft, IsNotKnownAtFirst) {
  TimeLeft left;
  EXPECT_EQ(left.After(1s, 50, 1000), "");  // too soon
  EXPECT_EQ(left.After(10s, 4, 1000), "");  // too few
  EXPECT_EQ(left.After(10s, 0, 1000), "");
}

TEST(TimeLeft, IsNoneAtTheEnd) { EXPECT_EQ(TimeLeft().After(100s, 1000, 1000), ""); }

TEST(TimeLeft, FollowsFromTheTimeThatTheOthersTook) {
  EXPECT_EQ(TimeLeft().After(10s, 10, 30), "20 s left");
  EXPECT_EQ(TimeLeft().After(10s, 10, 11), "10 s left");
  EXPECT_EQ(TimeLeft().After(10s, 10, 60), "50 s left");
  EXPECT_EQ(TimeLeft().After(10s, 10, 61), "1 min left");
  EXPECT_EQ(TimeLeft().After(10s, 10, 71), "2 min left");
  EXPECT_EQ(TimeLeft().After(600s, 10, 69), "59 min left");
  EXPECT_EQ(TimeLeft().After(600s, 10, 70), "1 h 0 min left");
  EXPECT_EQ(TimeLeft().After(60s, 10, 10000), "16 h 39 min left");
}

TEST(TimeLeft, StaysWithAnEndThatIsNearlyTheSame) {
  TimeLeft left;
  EXPECT_EQ(left.After(100s, 100, 700), "10 min left");
  EXPECT_EQ(left.After(130s, 120, 700), "10 min left");  // 628 s by the mean of all so far, which is in 758 s
  EXPECT_EQ(left.After(220s, 210, 700), "8 min left");   // the end in 700 s still stands
  EXPECT_EQ(left.After(400s, 300, 700), "9 min left");   // 533 s, and no longer 300 s
}

TEST(TimeLeft, IsForeseenAnewWhereTheEndHasPassed) {
  TimeLeft left;
  EXPECT_EQ(left.After(10s, 100, 200), "10 s left");
  EXPECT_EQ(left.After(30s, 150, 200), "10 s left");
  EXPECT_EQ(left.After(200s, 160, 200), "50 s left");
}

}  // namespace
}  // namespace brvhost
