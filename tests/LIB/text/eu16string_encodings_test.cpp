// 8-bit text is in the encoding that the application has at the moment of each conversion.
#include <brvplatform.h>
#include <gtest/gtest.h>

#include "eu16text.h"

namespace {

class Eu16StringEncodings : public testing::Test {
 protected:
  void TearDown() override { BrvPlatformSetApplicationTextEncoding(kCFStringEncodingMacRoman); }

  static std::string StdStringOf(const eu16string& text) {
    std::string result = "left over";
    text.GetStdString(result);
    return result;
  }
};

TEST_F(Eu16StringEncodings, AreMacRomanUnlessTheHostSetsAnother) {
  EXPECT_EQ(UnitsOf("\x8E"), u"\u00E9");
  EXPECT_EQ(StdStringOf(FromUtf8("\xC3\xA9")), "\x8E");
}

TEST_F(Eu16StringEncodings, AreAskedForEachTextThatIsRead) {
  const char* bytes = "\x8E";
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingWindowsLatin1);
  EXPECT_EQ(UnitsOf(bytes), u"\u017D");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingMacRoman);
  EXPECT_EQ(UnitsOf(bytes), u"\u00E9");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingISOLatin1);
  EXPECT_EQ(UnitsOf(bytes), u"\u008E");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingUTF8);
  EXPECT_EQ(UnitsOf(bytes), u"");
}

TEST_F(Eu16StringEncodings, AreAskedForEachTextThatIsWritten) {
  const eu16string text = FromUtf8("\xC3\xA9");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingISOLatin1);
  EXPECT_EQ(StdStringOf(text), "\xE9");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingUTF8);
  EXPECT_EQ(StdStringOf(text), "\xC3\xA9");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingMacRoman);
  EXPECT_EQ(StdStringOf(text), "\x8E");
}

TEST_F(Eu16StringEncodings, HoldForASingleCharacter) {
  EXPECT_EQ(UnitsOf(eu16string('\x8E')), u"\u00E9");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingWindowsLatin1);
  EXPECT_EQ(UnitsOf(eu16string('\x8E')), u"\u017D");
  EXPECT_EQ(UnitsOf(eu16string('a')), u"a");
  EXPECT_EQ(UnitsOf(eu16string('\0')), u"");
}

TEST_F(Eu16StringEncodings, DoNotTouchUtf8) {
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingISOLatin1);
  EXPECT_EQ(UnitsOf(FromUtf8("\xC3\xA9")), u"\u00E9");
}

TEST_F(Eu16StringEncodings, PutAQuestionMarkForWhatTheyLack) {
  EXPECT_EQ(StdStringOf(FromUtf8("a\xE4\xB8\xAD"
                                 "b")),
            "a?b");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingASCII);
  EXPECT_EQ(StdStringOf(FromUtf8("Fl\xC3\xB6te")), "Fl?te");
}

TEST_F(Eu16StringEncodings, ReplaceWhatStoodInTheResult) { EXPECT_EQ(StdStringOf(""), ""); }

TEST_F(Eu16StringEncodings, EndTheResultAtAUnitOfZero) {
  eu16string text = "abc";
  text.AnsiCharAtIndex(2) = 0;
  EXPECT_EQ(StdStringOf(text), "a");
}

TEST_F(Eu16StringEncodings, HaveRoomForTheLongestTexts) {
  std::string letters;
  for (int i = 0; i < 5000; ++i) letters += "\xE2\x99\xAF";
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingUTF8);
  EXPECT_EQ(StdStringOf(eu16string(letters.c_str())), letters);
}

}  // namespace
