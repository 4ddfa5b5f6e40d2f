#include "host/text/shortlist.h"

#include <gtest/gtest.h>

#include <string>

namespace brvhost {
namespace {

TEST(ShortList, HasTheFirstSixOfMany) {
  EXPECT_EQ(ShortList({"a", "b", "c", "d", "e", "f"}), "a, b, c, d, e, f");
  EXPECT_EQ(ShortList({"a", "b", "c", "d", "e", "f", "g", "h"}), "a, b, c, d, e, f and 2 more");
  EXPECT_EQ(ShortList({}), "");
}

TEST(ShortList, CutsLongTexts) { EXPECT_EQ(ShortList({std::string(100, 'a'), "b"}), std::string(60, 'a') + "..., b"); }

}  // namespace
}  // namespace brvhost
