#include "host/xml/elementplace.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

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

TEST(PlacesOfElements, AreFoundInOneReading) {
  const std::string document = "<a>\n<b/>\r\n<c/>\r <d/>\n</a>";
  const std::vector<std::uint64_t> offsets = {document.find("<b/>"), document.find("<b/>"), document.find("<c/>") + 1,
                                              document.find("<d/>"), document.size()};
  std::vector<std::uint64_t> lines;
  for (const TextPlace& place : PlacesOfElements(document, offsets)) lines.push_back(place.line);
  EXPECT_EQ(lines, (std::vector<std::uint64_t>{2, 2, 0, 4, 0}));
}

TEST(PlacesOfElements, ReadNoFurtherThanTheLast) {
  const std::string document = "<a>\n<b/> not closed";
  EXPECT_EQ(PlacesOfElements(document, std::vector<std::uint64_t>{document.find("<b/>")})[0].line, 2u);
}

}  // namespace
}  // namespace brvhost
