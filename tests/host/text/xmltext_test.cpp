#include "host/text/xmltext.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

TEST(XmlText, HasEntitiesForMarkup) {
  EXPECT_EQ(XmlOf("a<b> & \"c\" &lt;"), "a&lt;b&gt; &amp; &quot;c&quot; &amp;lt;");
}

TEST(XmlText, IsOnOneLineWithoutControlCharacters) {
  EXPECT_EQ(XmlOf("a\nb\x01"
                  "c\x7F"),
            "a b c ");
}

TEST(XmlText, HasNoCharactersThatNoDocumentMayHave) {
  EXPECT_EQ(XmlOf("a\uFFFE\uFFFF\xFF\u00E9"), "a\uFFFD\uFFFD\uFFFD\u00E9");
}

}  // namespace
}  // namespace brvhost
