#include "host/xml/elementplace.h"

#include <gtest/gtest.h>

#include <string>

namespace brvhost {
namespace {

TEST(PlaceOfElement, CountsLinesAndCharacters) {
  const std::string document = "<a>\n\u00E9\u00E9<b/>\n<c/></a>";
  const TextPlace place = PlaceOfElement(document, document.find("<b/>"));
  EXPECT_EQ(place.line, 2u);
  EXPECT_EQ(place.column, 3u);
}

TEST(PlaceOfElement, IsThatOfTheEntityWhichTheElementComesFrom) {
  const std::string document = "<!DOCTYPE a [<!ENTITY b '<b/>'>]>\n<a> &b;</a>";
  const TextPlace place = PlaceOfElement(document, document.find("&b;"));
  EXPECT_EQ(place.line, 2u);
  EXPECT_EQ(place.column, 5u);
}

TEST(PlaceOfElement, IsNoneWhereNoElementStarts) { EXPECT_EQ(PlaceOfElement("<a> <b/></a>", 3).line, 0u); }

}  // namespace
}  // namespace brvhost
