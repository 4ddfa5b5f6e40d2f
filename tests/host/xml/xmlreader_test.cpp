#include "host/xml/xmlreader.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <string>
#include <string_view>

#include "host/process/memorylimit.h"
#include "host/text/inputerror.h"

namespace brvhost {
namespace {

// A reader that wants nothing.
class Nobody : public XmlHandler {
 public:
  void Begin(XmlPosition&) override {}
  void StartElement(const char*, const XmlAttributes&) override {}
  void EndElement() override {}
  void Text(std::string_view) override {}
};

TEST(ReadXmlSection, RefusesASectionInUtf16) {
  const std::string_view content(" \0<\0a\0/\0>\0", 10);
  Nobody nobody;
  EXPECT_NO_THROW(ReadXml(content, nobody));
  try {
    ReadXmlSection({"", content, "", 0}, nobody);
    FAIL() << "it was read";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "the section is not in UTF-8");
  }
}

std::string Nested(int depth) {
  std::string document;
  for (int i = 0; i < depth; ++i) document += "<a>\n";
  for (int i = 0; i < depth; ++i) document += "</a>";
  return document;
}

TEST(ReadXml, RefusesElementsThatAreNestedTooDeep) {
  Nobody nobody;
  EXPECT_NO_THROW(ReadXml(Nested(256), nobody));
  EXPECT_NO_THROW(ReadXml("<b>" + Nested(255) + Nested(255) + "</b>", nobody));
  try {
    ReadXml(Nested(257), nobody);
    FAIL() << "it was read";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "elements are nested more than 256 deep");
    EXPECT_EQ(error.place.line, 257u);
    EXPECT_EQ(error.place.column, 1u);
  }
}

// The parser's buffer for the text takes less than 32 MB, and the attribute, which it keeps besides, up to 16 MB more.
TEST(ReadXml, LacksMemoryWhenTheParserDoes) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer ends the program when memory runs out";
#endif
  constexpr std::uint64_t kMegabyte = 1 << 20;
  const std::string document = "<a b='" + std::string(10 * kMegabyte, 'b') + "'/>";
  Nobody nobody;
  int refusals = 0;
  for (std::uint64_t allowance = 0; allowance < 64 * kMegabyte; allowance += 4 * kMegabyte) {
    const MemoryLimit limit(allowance, 0);
    try {
      ReadXml(document, nobody);
    } catch (const std::bad_alloc&) {
      ++refusals;
    }
  }
  EXPECT_GT(refusals, 4);
  EXPECT_LT(refusals, 15);
}

}  // namespace
}  // namespace brvhost
