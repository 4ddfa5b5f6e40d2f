#include "bxstring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

#include "units.h"

namespace {

TEST(BxStrlen, CountsUnitsBeforeTheEnd) {
  EXPECT_EQ(bx_strlen(Units(u"")), 0u);
  EXPECT_EQ(bx_strlen(Units(u"abc")), 3u);
  EXPECT_EQ(bx_strlen(Units(u"a\U0001F600")), 3u);
}

TEST(BxStrchr, FindsTheFirstOfEqualUnits) {
  const UniChar* text = Units(u"abcb");
  EXPECT_EQ(bx_strchr(text, 'b'), text + 1);
  EXPECT_EQ(bx_strchr(text, 'x'), nullptr);
}

TEST(BxStrchr, FindsTheEndForZero) {
  const UniChar* text = Units(u"abc");
  EXPECT_EQ(bx_strchr(text, 0), text + 3);
  const UniChar* empty = Units(u"");
  EXPECT_EQ(bx_strchr(empty, 0), empty);
}

TEST(BxStrchr, LooksAtTheLow16BitsOfTheWantedUnit) {
  const UniChar* text = Units(u"ab\xFFFF");
  EXPECT_EQ(bx_strchr(text, 0x10000 | 'b'), text + 1);
  EXPECT_EQ(bx_strchr(text, -1), text + 2);
}

TEST(BxStrchr, DoesNotLookBeyondTheEnd) { EXPECT_EQ(bx_strchr(Units(u"ab\0x"), 'x'), nullptr); }

TEST(BxStrncpy, LeavesTheEndOpenWhenTheSourceIsLonger) {
  UniChar dst[] = {9, 9, 9, 9};
  bx_strncpy(dst, Units(u"abcdef"), 3);
  EXPECT_EQ(dst[0], 'a');
  EXPECT_EQ(dst[2], 'c');
  EXPECT_EQ(dst[3], 9);
}

TEST(BxStrncpy, LeavesTheEndOpenWhenTheSourceFitsExactly) {
  UniChar dst[] = {9, 9, 9};
  bx_strncpy(dst, Units(u"ab"), 2);
  EXPECT_EQ(dst[2], 9);
}

TEST(BxStrncpy, FillsWithZerosUpToTheCountAndNoFurther) {
  UniChar dst[30];
  std::fill(std::begin(dst), std::end(dst), UniChar{9});
  bx_strncpy(dst, Units(u"ab"), 29);
  EXPECT_EQ(TextAt(dst), u"ab");
  for (int i = 2; i < 29; ++i) EXPECT_EQ(dst[i], 0) << i;
  EXPECT_EQ(dst[29], 9);
}

TEST(BxStrncpy, FillsWithZerosWhateverTheCount) {
  for (std::size_t count = 3; count < 40; ++count) {
    std::vector<UniChar> dst(50, 9);
    bx_strncpy(dst.data(), Units(u"ab"), count);
    std::vector<UniChar> expected(50, 9);
    std::fill_n(expected.begin(), count, UniChar{0});
    expected[0] = 'a';
    expected[1] = 'b';
    EXPECT_EQ(dst, expected) << count;
  }
}

TEST(BxStrncpy, WritesNothingForZeroUnits) {
  UniChar dst[] = {9};
  bx_strncpy(dst, Units(u"ab"), 0);
  EXPECT_EQ(dst[0], 9);
}

TEST(BxStrcmp, IsMinusOneZeroOrOne) {
  EXPECT_EQ(bx_strcmp(Units(u""), Units(u"a")), -1);
  EXPECT_EQ(bx_strcmp(Units(u"a"), Units(u"")), 1);
  EXPECT_EQ(bx_strcmp(Units(u""), Units(u"")), 0);
  EXPECT_EQ(bx_strcmp(Units(u"a"), Units(u"z")), -1);
  EXPECT_EQ(bx_strcmp(Units(u"az"), Units(u"aa")), 1);
}

TEST(BxStrcmp, ComparesUnitsWithoutSign) {
  EXPECT_EQ(bx_strcmp(Units(u"\xFFFF"), Units(u"A")), 1);
  EXPECT_EQ(bx_strcmp(Units(u"A"), Units(u"\xFFFF")), -1);
  EXPECT_EQ(bx_strcmp(Units(u"\x7FFF"), Units(u"\x8000")), -1);
}

TEST(BxStrcmp, ComparesByUnitAndNotByCodePoint) { EXPECT_EQ(bx_strcmp(Units(u"\U0001F600"), Units(u"\uFFFD")), -1); }

TEST(BxStrncmp, IsZeroForZeroUnits) { EXPECT_EQ(bx_strncmp(Units(u"a"), Units(u"b"), 0), 0); }

TEST(BxStrncmp, ComparesNoFurtherThanTheCount) {
  EXPECT_EQ(bx_strncmp(Units(u"abcX"), Units(u"abcY"), 3), 0);
  EXPECT_EQ(bx_strncmp(Units(u"abcX"), Units(u"abcY"), 4), -1);
  EXPECT_EQ(bx_strncmp(Units(u"abcY"), Units(u"abcX"), 4), 1);
}

TEST(BxStrncmp, StopsWhereBothEnd) {
  EXPECT_EQ(bx_strncmp(Units(u"ab\0x"), Units(u"ab\0y"), 4), 0);
  EXPECT_EQ(bx_strncmp(Units(u"ab"), Units(u"abc"), 100), -1);
  EXPECT_EQ(bx_strncmp(Units(u"ab"), Units(u"ab"), static_cast<std::size_t>(-1)), 0);
}

TEST(BxStrstr, FindsAnEmptyNeedleAtTheStart) {
  const UniChar* text = Units(u"abc");
  EXPECT_EQ(bx_strstr(text, Units(u"")), text);
  const UniChar* empty = Units(u"");
  EXPECT_EQ(bx_strstr(empty, Units(u"")), empty);
}

TEST(BxStrstr, FindsNoNeedleThatIsLonger) {
  EXPECT_EQ(bx_strstr(Units(u"ab"), Units(u"abc")), nullptr);
  EXPECT_EQ(bx_strstr(Units(u""), Units(u"a")), nullptr);
}

TEST(BxStrstr, DoesNotLookBeyondTheEnd) {
  const UniChar* text = Units(u"ab\0needle, and all of it is behind the end");
  EXPECT_EQ(bx_strstr(text, Units(u"n")), nullptr);
  EXPECT_EQ(bx_strstr(text, Units(u"ne")), nullptr);
  EXPECT_EQ(bx_strstr(text, Units(u"needle")), nullptr);
  EXPECT_EQ(bx_strstr(text, Units(u"bn")), nullptr);
  EXPECT_EQ(bx_strstr(text, Units(u"ab")), text);
}

TEST(BxStrstr, FindsTheFirstFullMatch) {
  const UniChar* text = Units(u"aabaabaac-aabaac");
  EXPECT_EQ(bx_strstr(text, Units(u"aabaac")), text + 3);
  EXPECT_EQ(bx_strstr(text, Units(u"-")), text + 9);
  EXPECT_EQ(bx_strstr(text, Units(u"aad")), nullptr);
}

TEST(BxStrstr, TakesHalfASurrogatePairAsAnyUnit) {
  const UniChar* text = Units(u"a\U0001F600b");
  EXPECT_EQ(bx_strstr(text, Units(u"\xDE00")), text + 2);
}

TEST(BxStrcpy, CopiesTheWholeTextWhateverTheSize) {
  UniChar dst[12];
  std::fill(std::begin(dst), std::end(dst), UniChar{9});
  bx_strcpy(dst, 4, Units(u"0123456789"));
  EXPECT_EQ(TextAt(dst), u"0123456789");
  EXPECT_EQ(dst[11], 9);
  bx_strcpy(dst, 0, Units(u"ab"));
  EXPECT_EQ(TextAt(dst), u"ab");
  EXPECT_EQ(dst[3], '3');
}

TEST(BxStrcpy, CopiesWithoutASize) {
  UniChar dst[4] = {9, 9, 9, 9};
  bx_strcpy(dst, Units(u"ab"));
  EXPECT_EQ(TextAt(dst), u"ab");
  EXPECT_EQ(dst[3], 9);
}

TEST(BxStrcpy, MovesATextTowardsItsStart) {
  std::u16string text = u"0123456789abcdefghijklmnopqrstuvwxyz0123456789";
  for (std::size_t by = 0; by < text.size(); ++by) {
    std::u16string moved = text;
    UniChar* units = reinterpret_cast<UniChar*>(moved.data());
    bx_strcpy(units, units + by);
    EXPECT_EQ(TextAt(units), text.substr(by));
  }
}

TEST(BxStrcat, AppendsTheWholeTextWhateverTheSize) {
  UniChar dst[16] = {'x', 'y', 0};
  std::fill(dst + 3, std::end(dst), UniChar{9});
  bx_strcat(dst, 4, Units(u"0123456789"));
  EXPECT_EQ(TextAt(dst), u"xy0123456789");
  EXPECT_EQ(dst[13], 9);
}

TEST(BxStrcat, StartsAnEmptyText) {
  UniChar dst[4] = {0, 9, 9, 9};
  bx_strcat(dst, 0, Units(u"ab"));
  EXPECT_EQ(TextAt(dst), u"ab");
}

}  // namespace
