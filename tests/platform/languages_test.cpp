// Which of a bundle's localizations a user gets, where no table of facts has the language.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include "ownbundle.h"

namespace {

class Localizations : public OwnBundle {
 protected:
  void SetUp() override {
    OwnBundle::SetUp();
    for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) unsetenv(name);
  }

  // A bundle with these localizations, each with a table that has its name, and English.
  void OpenWith(std::initializer_list<const char*> languages) {
    for (const char* const language : languages) {
      const std::filesystem::path folder = Contents() / "Resources" / (std::string(language) + ".lproj");
      std::filesystem::create_directories(folder);
      std::ofstream(folder / "Localizable.strings") << "k = \"" << language << "\";";
    }
    Open("{ CFBundleDevelopmentRegion = en; }", "k = en;");
  }

  std::string Served(const char* languages) const {
    setenv("LANGUAGE", languages, 1);
    return Text(CFSTR("k"));
  }
};

TEST_F(Localizations, OfChineseFollowTheScriptOfTheCountry) {
  OpenWith({"zh-Hans", "zh-Hant"});
  for (const char* const language : {"zh", "zh_CN", "zh-SG", "zh_Hans"}) EXPECT_EQ(Served(language), "zh-Hans");
  for (const char* const language : {"zh_TW", "zh-HK", "zh_MO", "zh_Hant"}) EXPECT_EQ(Served(language), "zh-Hant");
}

TEST_F(Localizations, HaveOldNames) {
  OpenWith({"German", "French", "Italian", "Spanish", "Japanese", "Dutch"});
  EXPECT_EQ(Served("de"), "German");
  EXPECT_EQ(Served("fr_CA"), "French");
  EXPECT_EQ(Served("it"), "Italian");
  EXPECT_EQ(Served("es"), "Spanish");
  EXPECT_EQ(Served("ja"), "Japanese");
  EXPECT_EQ(Served("nl_BE"), "Dutch");
}

TEST_F(Localizations, OfALanguageAreNotThoseOfAnotherWhoseNameBeginsAlike) {
  OpenWith({"fil", "gsw"});
  EXPECT_EQ(Served("fi"), "en");
  EXPECT_EQ(Served("g"), "en");
  EXPECT_EQ(Served("fil_PH"), "fil");
}

TEST_F(Localizations, DoNotHaveTheBaseAmongThem) {
  OpenWith({"Base", "de"});
  EXPECT_EQ(Served("Base:de"), "de");
  EXPECT_EQ(Served("Base"), "en");
}

TEST_F(Localizations, AreChosenByTheFirstVariableThatIsNotEmpty) {
  OpenWith({"de", "fr", "it"});
  const char* const names[] = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};
  for (const char* const name : names) unsetenv(name);
  EXPECT_EQ(Text(CFSTR("k")), "en");
  setenv("LANG", "it_IT.UTF-8", 1);
  for (const char* const name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"}) setenv(name, "", 1);
  EXPECT_EQ(Text(CFSTR("k")), "it");
  setenv("LC_MESSAGES", "fr_FR@euro", 1);
  EXPECT_EQ(Text(CFSTR("k")), "fr");
  for (const char* const name : names) unsetenv(name);
}

TEST_F(Localizations, AreNotChosenInTheLocaleOfPrograms) {
  OpenWith({"de", "fr"});
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    for (const char* const locale : {"C", "POSIX"}) {
      setenv(name, locale, 1);
      EXPECT_EQ(Served("de"), "en") << name << "=" << locale;
    }
    setenv(name, "C.UTF-8", 1);
    EXPECT_EQ(Served("de"), "de") << "a locale with characters of its own";
    unsetenv(name);
  }
  setenv("LC_ALL", "fr_FR", 1);
  setenv("LANG", "C", 1);
  EXPECT_EQ(Served("de"), "de") << "the locale is another";
  EXPECT_EQ(Served(""), "fr");
}

TEST_F(Localizations, AreChosenFromAListThatHasGaps) {
  OpenWith({"de", "fr"});
  EXPECT_EQ(Served("::xx::fr:de"), "fr");
  EXPECT_EQ(Served(":"), "en");
}

}  // namespace
