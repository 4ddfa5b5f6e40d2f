#include "host/text/shortlist.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

TEST(ShortList, HasTheFirstSixOfMany) {
  EXPECT_EQ(ShortList({"a", "b", "c", "d", "e", "f"}), "a, b, c, d, e, f");
  EXPECT_EQ(ShortList({"a", "b", "c", "d", "e", "f", "g", "h"}), "a, b, c, d, e, f and 2 more");
  EXPECT_EQ(ShortList({}), "");
}

}  // namespace
}  // namespace brvhost
