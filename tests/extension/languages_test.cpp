// The texts in every language that the bundle has.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "portable.h"
#include "recordinghost.h"
#include "tests/support/text.h"

namespace {

constexpr int kStringIDs[] = {0x4E200001, 0x4E200002, 0x4E200003, 0x4E210001, 0x4E210002,
                              0x4E210003, 0x4E840001, 0x4E840002, 0x4E840003};

std::u16string Text(int id) {
  UniChar buffer[512];
  PlugIn_GetStringResource(id, buffer, 512);
  return TextOf(buffer);
}

std::vector<std::string> AllLanguages() {
  std::istringstream words(BRV_LANGUAGES);
  return {std::istream_iterator<std::string>(words), {}};
}

class Languages : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override { setenv("LANGUAGE", GetParam().c_str(), 1); }
  RecordingHost host_;
};

TEST_P(Languages, HaveEveryText) {
  std::set<std::u16string> ofLanguage;
  for (const int id : kStringIDs) {
    const std::u16string text = Text(id);
    EXPECT_FALSE(text.empty());
    EXPECT_FALSE(text[0] >= u'0' && text[0] <= u'9') << "a key: " << std::hex << id;
    EXPECT_EQ(text.find(u'%'), std::u16string::npos);
    ofLanguage.insert(text);
  }
  // Only the name of an item and of its Undo may be the same.
  EXPECT_GE(ofLanguage.size(), 7u);
}

TEST_P(Languages, HaveMenuTextsThatFitTheHostsRecord) {
  for (const int id : kStringIDs) EXPECT_LT(Text(id).size(), std::size_t{MenuItemTexts::kUnits}) << std::hex << id;
}

TEST_P(Languages, DifferFromOneAnother) {
  const std::u16string own = Text(0x4E200003);
  setenv("LANGUAGE", GetParam() == "en" ? "de" : "en", 1);
  EXPECT_NE(Text(0x4E200003), own);
}

INSTANTIATE_TEST_SUITE_P(All, Languages, testing::ValuesIn(AllLanguages()), [](const auto& parameter) {
  return std::regex_replace(parameter.param, std::regex("-"), "_");
});

TEST(AnotherLanguage, IsServedInEnglish) {
  RecordingHost host;
  setenv("LANGUAGE", "fi:sv", 1);
  EXPECT_EQ(Text(0x4E200001), u"Hide Ledger Lines");
}

TEST(TheEnvironment, NamesTheLanguageInTheUsualOrder) {
  RecordingHost host;
  for (const char* const name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"}) unsetenv(name);
  setenv("LANG", "it_IT.UTF-8", 1);
  EXPECT_EQ(Text(0x4E200001), u"Nascondi i tagli addizionali");
  setenv("LC_MESSAGES", "es_ES.UTF-8", 1);
  EXPECT_EQ(Text(0x4E200001), u"Ocultar las líneas adicionales");
  setenv("LC_ALL", "fr_FR.UTF-8", 1);
  EXPECT_EQ(Text(0x4E200001), u"Masquer les lignes supplémentaires");
  setenv("LANGUAGE", "de:en", 1);
  EXPECT_EQ(Text(0x4E200001), u"Hilfslinien ausblenden");
  unsetenv("LC_ALL");
  unsetenv("LC_MESSAGES");
}

}  // namespace
