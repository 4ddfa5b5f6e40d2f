#include "host/score/region.h"

#include <gtest/gtest.h>

#include "host/text/inputerror.h"

namespace brvhost {
namespace {

Score FourByTen() {
  Score score;
  score.staves = 4;
  score.measures = 10;
  return score;
}

TEST(ParseNumberRange, ReadsNumbersAndOpenAndClosedRanges) {
  EXPECT_EQ(ParseNumberRange("3")->first, 3);
  EXPECT_EQ(ParseNumberRange("3")->last, 3);
  EXPECT_EQ(ParseNumberRange("2-5")->first, 2);
  EXPECT_EQ(ParseNumberRange("2-5")->last, 5);
  EXPECT_FALSE(ParseNumberRange("2-")->last);
  EXPECT_EQ(ParseNumberRange("-5")->first, 1);
}

TEST(ParseNumberRange, RefusesWhatIsNotARange) {
  for (const char* text : {"", "-", "0", "0-2", "5-2", "a", "1-b", "1 - 2", "1-2-3", "99999999999", "1.5"}) {
    EXPECT_FALSE(ParseNumberRange(text)) << text;
  }
}

TEST(RegionOf, IsNoneWhenNothingIsAskedFor) { EXPECT_FALSE(RegionOf({}, FourByTen())); }

TEST(RegionOf, ReachesAsFarAsTheScoreWhereNothingElseIsGiven) {
  RegionRequest request;
  request.startAt = Fraction{5, 2};
  const auto region = RegionOf(request, FourByTen());
  ASSERT_TRUE(region);
  EXPECT_EQ(+region->startStaff, 1);
  EXPECT_EQ(+region->endStaff, 4);
  EXPECT_EQ(+region->startMeasure, 1);
  EXPECT_EQ(+region->endMeasure, 10);
  EXPECT_EQ(+region->startPosition, 25200);
  EXPECT_EQ(+region->endPosition, 0x7FFFFFFF);
}

TEST(RegionOf, EndsWithTheScore) {
  RegionRequest request;
  request.staves = ParseNumberRange("3-9");
  request.measures = ParseNumberRange("10-");
  const auto region = RegionOf(request, FourByTen());
  EXPECT_EQ(+region->startStaff, 3);
  EXPECT_EQ(+region->endStaff, 4);
  EXPECT_EQ(+region->startMeasure, 10);
  EXPECT_EQ(+region->endMeasure, 10);
}

TEST(RegionOf, RefusesToStartBeyondTheScore) {
  RegionRequest request;
  request.staves = ParseNumberRange("5");
  EXPECT_THROW(RegionOf(request, FourByTen()), InputError);
}

TEST(RegionOf, TakesAPositionTooFarAwayForTheEnd) {
  RegionRequest request;
  request.endAt = ParseFraction("999999999999");
  EXPECT_EQ(+RegionOf(request, FourByTen())->endPosition, 0x7FFFFFFF);
}

}  // namespace
}  // namespace brvhost
