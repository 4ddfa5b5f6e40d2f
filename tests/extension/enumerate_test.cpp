// The texts of the menu items, from tables that are not as they should be.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "recordinghost.h"
#include "tests/support/copiedbundle.h"
#include "tests/support/text.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr UniChar kUntouched = 0xAAAA;

class Enumerate : public CopiedBundle {
 protected:
  void SetUp() override {
    CopiedBundle::SetUp();
    std::memset(&texts_, kUntouched & 0xFF, sizeof(texts_));
  }

  // Of the copy, into texts_.
  int EnumerateItem(int item) {
    BindCopy();
    const auto enumerate =
        reinterpret_cast<int (*)(void*, int, MenuItemTexts*)>(LoadCopy("BrevixExtensionEnumerate_UTF16"));
    return enumerate(nullptr, item, &texts_);
  }

  // What the record holds at the moment, "..." for a text that nothing was written to.
  std::vector<std::u16string> Texts() const {
    std::vector<std::u16string> texts;
    for (const UniChar* text : {texts_.text1, texts_.text2, texts_.text3}) {
      texts.push_back(text[0] == kUntouched ? u"..." : TextOf(text));
    }
    return texts;
  }

  RecordingHost host_;
  MenuItemTexts texts_;
};

TEST_F(Enumerate, WithoutATableDeliversTheKeysAndAnAlertForEach) {
  RemoveTable();
  EXPECT_EQ(EnumerateItem(0), 1);
  EXPECT_THAT(Texts(), ElementsAre(u"20000,1", u"20000,2", u"20000,3"));
  EXPECT_EQ(texts_.reserved, 0u);
  EXPECT_EQ(EnumerateItem(1), 1);
  EXPECT_THAT(Texts(), ElementsAre(u"20001,1", u"20001,2", u"20001,3"));
  EXPECT_EQ(texts_.reserved, 0u);
  EXPECT_EQ(host_.Texts(), std::vector<std::string>(6, "BX_AlertMessage(0, 0, 0, pointer)"));
  for (const HostCall& alert : host_.Calls()) EXPECT_STREQ(alert.Pointer<char>(3), "Missing Localizable.strings");
}

TEST_F(Enumerate, WithoutATableEndsTheListWithoutAnAlert) {
  RemoveTable();
  EXPECT_EQ(EnumerateItem(2), 0);
  EXPECT_THAT(Texts(), ElementsAre(u"...", u"...", u"..."));
  EXPECT_EQ(texts_.reserved, 0xAAAAAAAAu);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

// A text is emptied before it is looked up. Without a table each lookup shows an alert, and the record shows which
// lookup it is.
TEST_F(Enumerate, LooksTheThreeTextsUpInTheirOrderAndSetsTheLastWordAfterThem) {
  RemoveTable();
  std::vector<std::vector<std::u16string>> atLookups;
  host_.On("BX_AlertMessage", [&](const HostCall&) -> std::uint64_t {
    atLookups.push_back(Texts());
    EXPECT_EQ(texts_.reserved, 0xAAAAAAAAu);
    return 0;
  });
  EXPECT_EQ(EnumerateItem(1), 1);
  EXPECT_THAT(atLookups, ElementsAre(ElementsAre(u"", u"...", u"..."), ElementsAre(u"20001,1", u"", u"..."),
                                     ElementsAre(u"20001,1", u"20001,2", u"")));
}

TEST_F(Enumerate, DeliversAtMost127UnitsOfAText) {
  const std::string a127(127, 'a');
  const std::string b128(128, 'b');
  const std::string c300(300, 'c');
  WriteTable("\"20000,1\" = \"" + a127 + "\"; \"20000,2\" = \"" + b128 + "\"; \"20000,3\" = \"" + c300 + "\";");
  EXPECT_EQ(EnumerateItem(0), 1);
  EXPECT_THAT(Texts(), ElementsAre(std::u16string(127, u'a'), std::u16string(127, u'b'), std::u16string(127, u'c')));
  EXPECT_EQ(texts_.reserved, 0u);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(Enumerate, CutsAPairAtUnit127) {
  const std::string a126(126, 'a');
  WriteTable("\"20001,1\" = \"" + a126 + "\U0001D11E\";");
  EXPECT_EQ(EnumerateItem(1), 1);
  EXPECT_EQ(TextOf(texts_.text1), std::u16string(126, u'a') + std::u16string(1, 0xD834));
  EXPECT_EQ(TextOf(texts_.text2), u"20001,2");
}

}  // namespace
