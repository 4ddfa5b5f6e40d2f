#include "host/text/nearest.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

const std::vector<std::string> kNames = {"measures", "staves", "max-size", "max-memory", "all", "LegerLines"};

TEST(NearestName, HasALittleOfItWrong) {
  for (const char* const mistyped : {"mesures", "measure", "measuress", "maesures", "messures", "MEASURES"}) {
    EXPECT_EQ(NearestName(mistyped, kNames), "measures") << mistyped;
  }
  EXPECT_EQ(NearestName("al", kNames), "all");
  EXPECT_EQ(NearestName("ledgerlines", kNames), "LegerLines");
}

TEST(NearestName, IsNoneWithMoreOfItWrong) {
  for (const char* const mistyped : {"", "x", "fly", "mzzzures", "aaa", "LegerLinesLegerLines"}) {
    EXPECT_EQ(NearestName(mistyped, kNames), "") << mistyped;
  }
  EXPECT_EQ(NearestName("measures", {}), "");
}

TEST(NearestName, StartsWithWhatWasTyped) {
  EXPECT_EQ(NearestName("mea", kNames), "measures");
  EXPECT_EQ(NearestName("leger", kNames), "LegerLines");
  EXPECT_EQ(NearestName("max-", kNames), "") << "two do";
  EXPECT_EQ(NearestName("st", kNames), "") << "too short to be meant";
}

TEST(NearestName, IsNoneWhereTwoAreAsNear) { EXPECT_EQ(NearestName("bat", {"bar", "cat"}), ""); }

TEST(NearestName, IsNotLookedForWhereComparingTakesLong) {
  const std::string name(101, 'a');
  EXPECT_EQ(NearestName(name, {name}), "");
  EXPECT_EQ(NearestName(name.substr(1), {name.substr(1), name}), name.substr(1));
}

}  // namespace
}  // namespace brvhost
