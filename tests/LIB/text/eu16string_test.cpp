#include "eu16string.h"

#include <gtest/gtest.h>

#include <climits>

#include "eu16text.h"

namespace {

TEST(Eu16StringOfCodePoint, IsASurrogatePairBeyondTheFirstPlane) {
  EXPECT_EQ(UnitsOf(eu16string(0x1F600u)), std::u16string({0xD83D, 0xDE00}));
  EXPECT_EQ(UnitsOf(eu16string(0x10000u)), std::u16string({0xD800, 0xDC00}));
  EXPECT_EQ(UnitsOf(eu16string(0x10FFFFu)), std::u16string({0xDBFF, 0xDFFF}));
}

TEST(Eu16StringOfCodePoint, IsCutToItsLow16BitsElsewhere) {
  EXPECT_EQ(UnitsOf(eu16string(0x110041u)), u"A");
  EXPECT_EQ(UnitsOf(eu16string(0xFFFFu)), std::u16string({0xFFFF}));
  EXPECT_EQ(UnitsOf(eu16string(0xD800u)), std::u16string({0xD800}));
  EXPECT_EQ(UnitsOf(eu16string(0xDFFFu)), std::u16string({0xDFFF}));
}

TEST(Eu16StringOfCodePoint, IsEmptyForAUnitOfZero) {
  EXPECT_EQ(UnitsOf(eu16string(0u)), u"");
  EXPECT_EQ(UnitsOf(eu16string(0x110000u)), u"");
}

TEST(Eu16StringOfUtf8, HoldsTheTextInUnits) {
  EXPECT_EQ(UnitsOf(FromUtf8("Fl\xC3\xB6te \xF0\x9F\x98\x80")), u"Fl\u00F6te \U0001F600");
  EXPECT_EQ(UnitsOf(FromUtf8("")), u"");
}

TEST(Eu16StringOfUtf8, IsEmptyForBytesThatAreNotUtf8) {
  EXPECT_EQ(UnitsOf(FromUtf8("abc\xFF")), u"");
  EXPECT_EQ(UnitsOf(FromUtf8("\xC3")), u"");
}

TEST(AnsiDelete, ChangesNothingOutsideOfTheText) {
  eu16string text = "12345";
  EXPECT_EQ(UnitsOf(text.AnsiDelete(0, 2)), u"12345");
  EXPECT_EQ(UnitsOf(text.AnsiDelete(6, 1)), u"12345");
  EXPECT_EQ(UnitsOf(text.AnsiDelete(UINT_MAX, INT_MAX)), u"12345");
}

TEST(AnsiDelete, ChangesNothingForACountBelowOne) {
  eu16string text = "12345";
  EXPECT_EQ(UnitsOf(text.AnsiDelete(2, 0)), u"12345");
  EXPECT_EQ(UnitsOf(text.AnsiDelete(2, INT_MIN)), u"12345");
}

TEST(AnsiDelete, ClipsTheCountAtTheEnd) {
  EXPECT_EQ(UnitsOf(eu16string("12345").AnsiDelete(4, 10)), u"123");
  EXPECT_EQ(UnitsOf(eu16string("12345").AnsiDelete(2, INT_MAX)), u"1");
}

TEST(AnsiDelete, RemovesFromTheMiddleAndReturnsTheText) {
  eu16string text = "12345";
  EXPECT_EQ(&text.AnsiDelete(2, 3), &text);
  EXPECT_EQ(UnitsOf(text), u"15");
}

TEST(AnsiSubString, TakesAStartBelowOneAsOneAtTheFullCount) {
  const eu16string text = "12345";
  EXPECT_EQ(UnitsOf(text.AnsiSubString(0, 2)), u"12");
  EXPECT_EQ(UnitsOf(text.AnsiSubString(-3, 2)), u"12");
  EXPECT_EQ(UnitsOf(text.AnsiSubString(INT_MIN, 2)), u"12");
}

TEST(AnsiSubString, IsEmptyAfterTheEndAndForACountBelowOne) {
  const eu16string text = "12345";
  EXPECT_EQ(UnitsOf(text.AnsiSubString(6, 1)), u"");
  EXPECT_EQ(UnitsOf(text.AnsiSubString(INT_MAX, INT_MAX)), u"");
  EXPECT_EQ(UnitsOf(text.AnsiSubString(2, 0)), u"");
  EXPECT_EQ(UnitsOf(text.AnsiSubString(2, -1)), u"");
  EXPECT_EQ(UnitsOf(eu16string("").AnsiSubString(1, 1)), u"");
}

TEST(AnsiSubString, ClipsTheCountAtTheEnd) {
  const eu16string text = "12345";
  EXPECT_EQ(UnitsOf(text.AnsiSubString(4, 100)), u"45");
  EXPECT_EQ(UnitsOf(text.AnsiSubString(2, INT_MAX)), u"2345");
  EXPECT_EQ(UnitsOf(text.AnsiSubString(2, 3)), u"234");
}

TEST(AnsiSetLength, NeverLengthens) {
  eu16string text = "12345";
  EXPECT_EQ(UnitsOf(text.AnsiSetLength(10)), u"12345");
  EXPECT_EQ(UnitsOf(text.AnsiSetLength(UINT_MAX)), u"12345");
}

TEST(AnsiSetLength, CutsTheTextAndReturnsIt) {
  eu16string text = "12345";
  EXPECT_EQ(&text.AnsiSetLength(2), &text);
  EXPECT_EQ(UnitsOf(text), u"12");
  EXPECT_EQ(UnitsOf(text.AnsiSetLength(0)), u"");
}

TEST(AnsiCharAtIndex, OfAConstantTextIsASpaceOutside) {
  const eu16string text = "12345";
  EXPECT_EQ(text.AnsiCharAtIndex(0), 32);
  EXPECT_EQ(text.AnsiCharAtIndex(6), 32);
  EXPECT_EQ(text.AnsiCharAtIndex(INT_MIN), 32);
  EXPECT_EQ(text.AnsiCharAtIndex(INT_MAX), 32);
  EXPECT_EQ(text.AnsiCharAtIndex(1), '1');
  EXPECT_EQ(text.AnsiCharAtIndex(5), '5');
  const eu16string empty = "";
  EXPECT_EQ(empty.AnsiCharAtIndex(0), 32);
  EXPECT_EQ(empty.AnsiCharAtIndex(1), 32);
}

TEST(AnsiCharAtIndex, ReadsUnitsWithoutSign) {
  const eu16string text = 0xFFFFu;
  EXPECT_EQ(text.AnsiCharAtIndex(1), 0xFFFF);
}

TEST(AnsiCharAtIndex, IsTheFirstUnitOutside) {
  eu16string text = "12345";
  for (const int index : {INT_MIN, -1, 0, 6, INT_MAX}) {
    EXPECT_EQ(&text.AnsiCharAtIndex(index), &text.AnsiCharAtIndex(1)) << index;
  }
  text.AnsiCharAtIndex(99) = 'x';
  text.AnsiCharAtIndex(5) = 'y';
  EXPECT_EQ(UnitsOf(text), u"x234y");
}

TEST(AnsiCharAtIndex, IsTheEndOfAnEmptyText) {
  eu16string text = "";
  EXPECT_EQ(text.AnsiCharAtIndex(0), 0);
  EXPECT_EQ(text.AnsiCharAtIndex(7), 0);
}

TEST(AnsiPos, CountsFromOne) {
  EXPECT_EQ(eu16string("banana").AnsiPos("ban"), 1);
  EXPECT_EQ(eu16string("banana").AnsiPos("na"), 3);
  EXPECT_EQ(eu16string("banana").AnsiPos("banana"), 1);
}

TEST(AnsiPos, IsZeroForATextThatIsNotThere) {
  EXPECT_EQ(eu16string("banana").AnsiPos("nan "), 0);
  EXPECT_EQ(eu16string("ban").AnsiPos("banana"), 0);
  EXPECT_EQ(eu16string("").AnsiPos("a"), 0);
}

TEST(AnsiPos, FindsAnEmptyTextOnlyInOneThatIsNot) {
  EXPECT_EQ(eu16string("").AnsiPos(""), 0);
  EXPECT_EQ(eu16string("a").AnsiPos(""), 1);
}

TEST(StrToIntDef, GivesTheDefaultOnlyForAnEmptyText) {
  EXPECT_EQ(StrToIntDef("", 7), 7);
  EXPECT_EQ(StrToIntDef("staff", 7), 0);
  EXPECT_EQ(StrToIntDef("0", 7), 0);
}

TEST(StrToIntDef, ReadsTheNumberThatTheTextBeginsWith) {
  EXPECT_EQ(StrToIntDef("-42", 7), -42);
  EXPECT_EQ(StrToIntDef("12 staves", 7), 12);
  EXPECT_EQ(StrToIntDef("2147483647", 7), INT_MAX);
}

TEST(IntToEu16Str, WritesALong) {
  EXPECT_EQ(UnitsOf(IntToEu16Str(0)), u"0");
  EXPECT_EQ(UnitsOf(IntToEu16Str(-2147483649L)), u"-2147483649");
  EXPECT_EQ(UnitsOf(IntToEu16Str(LONG_MIN)), u"-9223372036854775808");
}

}  // namespace
