#include "host/text/placeholders.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

namespace brvhost {
namespace {

using Placeholders = std::map<int, std::string>;

TEST(Placeholders, AreNumberedInTheirOrder) {
  EXPECT_EQ(PlaceholdersIn("%d of %@, %-5.2lf"), (Placeholders{{1, "d"}, {2, "@"}, {3, "lf"}}));
}

TEST(Placeholders, HaveTheNumbersThatTheyState) {
  EXPECT_EQ(PlaceholdersIn("%2$@: %1$d"), (Placeholders{{1, "d"}, {2, "@"}}));
}

TEST(Placeholders, MayHaveWidthsAndFlags) {
  EXPECT_EQ(PlaceholdersIn("%2d %+i %#x %.9f %05llu %-3s"),
            (Placeholders{{1, "d"}, {2, "i"}, {3, "x"}, {4, "f"}, {5, "llu"}, {6, "s"}}));
  EXPECT_EQ(PlaceholdersIn("%12$03d"), (Placeholders{{12, "d"}}));
  EXPECT_EQ(PlaceholdersIn("%0$d"), Placeholders());
}

TEST(Placeholders, AreNotSignsOfPercent) { EXPECT_EQ(PlaceholdersIn("100 %, 5 % of it, 100%% and %"), Placeholders()); }

TEST(Placeholders, EndWithTheText) { EXPECT_EQ(PlaceholdersIn(std::string_view("5 %d").substr(0, 3)), Placeholders()); }

TEST(Placeholders, FollowASignOfPercent) {
  EXPECT_EQ(PlaceholdersIn("50%%d"), Placeholders());
  EXPECT_EQ(PlaceholdersIn("%%%d"), (Placeholders{{1, "d"}}));
}

}  // namespace
}  // namespace brvhost
