#include "host/xml/starttag.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace brvhost {
namespace {

std::string Edited(std::string document, const ByteEdit& edit) {
  return document.replace(edit.offset, edit.removed, edit.inserted);
}

// The document after an edit of its first tag.
template <class Edit>
std::string After(const std::string& document, Edit edit) {
  const auto tag = StartTag::At(document, CodeUnits::kBytes, 0);
  return tag ? Edited(document, edit(*tag)) : "no tag";
}

std::string Changed(const std::string& document) {
  return After(document, [](const StartTag& tag) { return tag.Change("print", "no"); });
}

std::string Without(const std::string& document) {
  return After(document, [](const StartTag& tag) { return tag.Remove("print"); });
}

TEST(StartTag, IsThereOnlyWhereATagStarts) {
  EXPECT_TRUE(StartTag::At("<a/>", CodeUnits::kBytes, 0));
  EXPECT_FALSE(StartTag::At("<a/>", CodeUnits::kBytes, 1));
  EXPECT_FALSE(StartTag::At("<a/>", CodeUnits::kBytes, 4)) << "after the end";
  EXPECT_FALSE(StartTag::At("\xFF<", CodeUnits::kBytes, 0));
  EXPECT_TRUE(StartTag::At(std::string_view("<\0a\0", 4), CodeUnits::kUtf16LittleEndian, 0));
  EXPECT_FALSE(StartTag::At(std::string_view("<\1a\0", 4), CodeUnits::kUtf16LittleEndian, 0));
  EXPECT_FALSE(StartTag::At(std::string_view("\0\xBC", 2), CodeUnits::kUtf16BigEndian, 0));
}

TEST(StartTag, HasBlanksOfAnyKindBetweenItsAttributes) {
  EXPECT_EQ(Changed("<note\tx='1'\rprint\n=\t\"yes\"\r/>"), "<note\tx='1'\rprint\n=\t\"no\"\r/>");
  EXPECT_EQ(Without("<note\r\n\tprint='yes'\r>"), "<note\r>");
}

TEST(StartTag, GetsAnAttributeAfterItsName) {
  const auto added = [](const StartTag& tag) { return tag.Add("print", "no"); };
  EXPECT_EQ(After("<note>", added), "<note print=\"no\">");
  EXPECT_EQ(After("<note/>", added), "<note print=\"no\"/>");
  EXPECT_EQ(After("<note\rx='1'>", added), "<note print=\"no\"\rx='1'>");
}

TEST(StartTag, StaysAsItIsWithoutTheAttribute) {
  for (const char* const document : {"<note>", "<note x='print'/>", "<note prins='1'>", "<note prin='1' prints='2'>"}) {
    EXPECT_EQ(Changed(document), document);
    EXPECT_EQ(Without(document), document);
  }
}

}  // namespace
}  // namespace brvhost
