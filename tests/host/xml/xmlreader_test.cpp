#include "host/xml/xmlreader.h"

#include <gtest/gtest.h>

#include <string_view>

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

}  // namespace
}  // namespace brvhost
