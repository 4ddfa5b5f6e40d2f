#include "host/score/numberrange.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brvhost {
namespace {

TEST(ParseNumberRange, ReadsNumbersAndOpenAndClosedRanges) {
  EXPECT_EQ(ParseNumberRange("3")->first, 3);
  EXPECT_EQ(ParseNumberRange("3")->last, 3);
  EXPECT_EQ(ParseNumberRange("2-5")->first, 2);
  EXPECT_EQ(ParseNumberRange("2-5")->last, 5);
  EXPECT_FALSE(ParseNumberRange("2-")->last);
  EXPECT_EQ(ParseNumberRange("-5")->first, 1);
}

TEST(ParseNumberRange, KnowsReversedRanges) {
  EXPECT_TRUE(ParseNumberRange("5-2")->IsReversed());
  for (const char* text : {"5", "2-5", "5-5", "5-", "-5"}) EXPECT_FALSE(ParseNumberRange(text)->IsReversed()) << text;
}

TEST(ParseNumberRange, RefusesWhatIsNotARange) {
  for (const char* text : {"", "-", "0", "0-2", "a", "1-b", "1 - 2", "1-2-3", "99999999999", "1.5"}) {
    EXPECT_FALSE(ParseNumberRange(text)) << text;
  }
}

TEST(TextsOfList, AreWhatStandsBetweenTheCommas) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(TextsOfList("1,3-4,x"), (Texts{"1", "3-4", "x"}));
  EXPECT_EQ(TextsOfList("1"), Texts{"1"});
  EXPECT_EQ(TextsOfList(",1,"), (Texts{"", "1", ""}));
}

}  // namespace
}  // namespace brvhost
