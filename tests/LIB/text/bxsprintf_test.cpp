#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstdio>

#include "units.h"

namespace {

constexpr std::size_t kRoom = 256;

// The text that bx_sprintf writes, of which it has to return the length.
template <class... Arguments>
std::u16string Formatted(const char16_t* format, Arguments... arguments) {
  UniChar text[kRoom];
  const int units = bx_sprintf(text, kRoom, Units(format), arguments...);
  std::u16string result = TextAt(text);
  EXPECT_EQ(static_cast<std::size_t>(units), result.size());
  return result;
}

// The same by printf, whose formats and results are all ASCII here.
template <class... Arguments>
void ExpectAsPrintf(const char* format, Arguments... arguments) {
  char expected[kRoom];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
  std::snprintf(expected, kRoom, format, arguments...);
#pragma GCC diagnostic pop
  const std::string narrow = format;
  const std::string narrowExpected = expected;
  EXPECT_EQ(Formatted(std::u16string(narrow.begin(), narrow.end()).c_str(), arguments...),
            std::u16string(narrowExpected.begin(), narrowExpected.end()))
      << format;
}

TEST(BxSprintf, FormatsIntegersAsPrintf) {
  ExpectAsPrintf("measure %d", 12);
  ExpectAsPrintf("%d %i %u", INT_MIN, INT_MAX, UINT_MAX);
  ExpectAsPrintf("[%5d] [%-5d] [%05d] [%+d] [% d] [%.3d]", 42, 42, 42, 42, 42, 42);
  ExpectAsPrintf("%x %X %#x %o %#o", 0xBEEF, 0xBEEF, 0xBEEF, 8, 8);
  ExpectAsPrintf("%ld %lld %lu", LONG_MIN, LLONG_MAX, ULONG_MAX);
  ExpectAsPrintf("%hd %hhd", 70000, 300);
}

TEST(BxSprintf, FormatsFractionsAsPrintf) {
  ExpectAsPrintf("%f %.2f [%8.3f] [%-8.1f] %e %g", 1.5, 2.345, 3.14159, 2.5, 12345.678, 0.0001);
}

TEST(BxSprintf, FormatsBytesAndPercentSignsAsPrintf) {
  ExpectAsPrintf("%c%c %s %%", 'o', 'k', "staff");
  ExpectAsPrintf("plain");
}

TEST(BxSprintf, TakesWidthsAndPrecisionsFromArguments) {
  ExpectAsPrintf("[%*d] [%-*d]", 6, 42, 6, 42);
  ExpectAsPrintf("[%.*f] [%*.*f]", 2, 3.14159, 9, 3, 2.71828);
}

TEST(BxSprintf, TakesArgumentsByPosition) { EXPECT_EQ(Formatted(u"%2$d-%1$d", 1, 2), u"2-1"); }

TEST(BxSprintf, InsertsStringsOfThePlatform) {
  const CFStringRef name = CFStringCreateWithCharacters(kCFAllocatorDefault, Units(u"Fl\u00F6te"), 5);
  EXPECT_EQ(Formatted(u"<%@>", name), u"<Fl\u00F6te>");
  CFRelease(name);
}

TEST(BxSprintf, InsertsUnits) {
  EXPECT_EQ(Formatted(u"<%S>", Units(u"Fl\u00F6te \U0001F600")), u"<Fl\u00F6te \U0001F600>");
  EXPECT_EQ(Formatted(u"<%C>", 0x266F), u"<\u266F>");
}

TEST(BxSprintf, KeepsTheFormatsOwnTextBeyondAscii) {
  EXPECT_EQ(Formatted(u"\u266D %d \U0001F600", 3), u"\u266D 3 \U0001F600");
}

TEST(BxSprintf, WritesNothingForAnEmptyFormat) { EXPECT_EQ(Formatted(u""), u""); }

TEST(BxSprintf, WritesOnlyTheEndWithRoomForOneUnit) {
  UniChar text[] = {9, 9};
  EXPECT_EQ(bx_sprintf(text, 1, Units(u"%d"), 123), 0);
  EXPECT_EQ(text[0], 0);
  EXPECT_EQ(text[1], 9);
}

TEST(BxSprintf, CutsALongResultAndReturnsWhatItWrote) {
  UniChar text[] = {9, 9, 9, 9, 9, 9};
  EXPECT_EQ(bx_sprintf(text, 5, Units(u"%d"), 1234567890), 4);
  EXPECT_EQ(TextAt(text), u"1234");
  EXPECT_EQ(text[5], 9);
}

TEST(BxSprintf, KeepsAResultThatFitsExactly) {
  UniChar text[] = {9, 9, 9, 9};
  EXPECT_EQ(bx_sprintf(text, 4, Units(u"%d"), 123), 3);
  EXPECT_EQ(TextAt(text), u"123");
}

TEST(BxSprintf, CutsThroughASurrogatePair) {
  UniChar text[3];
  EXPECT_EQ(bx_sprintf(text, 3, Units(u"a\U0001F600")), 2);
  EXPECT_EQ(TextAt(text), std::u16string({u'a', 0xD83D}));
}

TEST(BxSprintf, WritesTheWholeResultForRoomOfZero) {
  UniChar text[16];
  EXPECT_EQ(bx_sprintf(text, 0, Units(u"%d"), 1234567890), 10);
  EXPECT_EQ(TextAt(text), u"1234567890");
}

}  // namespace
