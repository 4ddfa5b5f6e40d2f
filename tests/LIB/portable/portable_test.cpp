// The texts of the bundle, and the byte strings.
#include <Carbon/Carbon.h>
#include <brvplatform.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "portable.h"
#include "recordinghost.h"
#include "tests/support/text.h"

namespace {

using testing::IsEmpty;

class StringResources : public testing::Test {
 protected:
  void SetUp() override { setenv("LANGUAGE", "en", 1); }
  void TearDown() override { BrvPlatformSetApplicationTextEncoding(kCFStringEncodingMacRoman); }

  static std::u16string Text(int id, short size = 128) {
    UniChar buffer[256];
    std::fill(std::begin(buffer), std::end(buffer), UniChar{0xAAAA});
    EXPECT_EQ(PlugIn_GetStringResource(id, buffer, size), buffer);
    EXPECT_EQ(buffer[size - 1], 0);
    EXPECT_EQ(buffer[size], 0xAAAA) << "written past the buffer";
    return TextOf(buffer);
  }

  static std::string Bytes(int id, short size = 256) {
    char buffer[512];
    std::memset(buffer, 0x55, sizeof(buffer));
    EXPECT_EQ(PlugIn_GetStringResource(id, buffer, size), buffer);
    EXPECT_EQ(buffer[size], 0x55) << "written past the buffer";
    return buffer;
  }

  RecordingHost host_;
};

TEST_F(StringResources, AnIDIsTheKeyOfItsTwoHalves) { EXPECT_EQ(Text(0x4E200001), u"Hide Ledger Lines"); }

TEST_F(StringResources, AnUnknownIDDeliversItsKeyWithoutAnAlert) {
  EXPECT_EQ(Text(0x4E200063), u"20000,99");
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(StringResources, TableZeroIsNotInTheKey) { EXPECT_EQ(Text(5), u"5"); }

TEST_F(StringResources, BothHalvesAreSigned) {
  EXPECT_EQ(Text(0x00018000), u"1,-32768");
  EXPECT_EQ(Text(static_cast<int>(0xFFFF0001)), u"-1,1");
  EXPECT_EQ(Text(0xFFFF), u"-1");
}

TEST_F(StringResources, ATextOfTheWholeBufferLosesItsLastUnit) {
  EXPECT_EQ(Text(0x4E200063, 9), u"20000,99");
  EXPECT_EQ(Text(0x4E200063, 8), u"20000,9");
  EXPECT_EQ(Text(0x4E200063, 4), u"200");
  EXPECT_EQ(Text(0x4E200063, 1), u"");
}

TEST_F(StringResources, ASizeOfZeroGivesNullAndWritesNothing) {
  UniChar units[] = {7};
  EXPECT_EQ(PlugIn_GetStringResource(0x4E200001, units, 0), nullptr);
  EXPECT_EQ(units[0], 7);
  char bytes[] = {7};
  EXPECT_EQ(PlugIn_GetStringResource(0x4E200001, bytes, 0), nullptr);
  EXPECT_EQ(bytes[0], 7);
}

TEST_F(StringResources, ANegativeSizeGivesNullAndWritesNothing) {
  UniChar units[] = {7};
  EXPECT_EQ(PlugIn_GetStringResource(0x4E200001, units, -1), nullptr);
  EXPECT_EQ(units[0], 7);
  char bytes[] = {7};
  EXPECT_EQ(PlugIn_GetStringResource(0x4E200001, bytes, -1), nullptr);
  EXPECT_EQ(bytes[0], 7);
}

TEST_F(StringResources, BytesAreInTheEncodingOfTheApplicationAtThatMoment) {
  setenv("LANGUAGE", "de", 1);
  // The a umlaut is 0x8A in Mac Roman, 0xE4 in ISO Latin 1.
  EXPECT_EQ(Bytes(0x4E200003), "Blendet die Hilfslinien aller Noten in der ausgew\x8Ahlten Region aus.");
  BrvPlatformSetApplicationTextEncoding(kCFStringEncodingISOLatin1);
  EXPECT_EQ(Bytes(0x4E200003), "Blendet die Hilfslinien aller Noten in der ausgew\xE4hlten Region aus.");
}

TEST_F(StringResources, BytesOfATextThatTheEncodingCannotHoldAreEmpty) {
  setenv("LANGUAGE", "ja", 1);
  EXPECT_EQ(Bytes(0x4E200001), "");
  EXPECT_EQ(Text(0x4E200001), u"加線を隠す");
}

TEST_F(StringResources, BytesFillTheBufferWithZeros) {
  char buffer[64];
  std::memset(buffer, 0x55, sizeof(buffer));
  PlugIn_GetStringResource(0x4E200001, buffer, 40);
  for (std::size_t i = std::strlen(buffer); i < 40; ++i) EXPECT_EQ(buffer[i], 0) << i;
  EXPECT_EQ(buffer[40], 0x55);
}

TEST_F(StringResources, LoadIndStringReturnsTheLengthAfterTheCut) {
  char buffer[64];
  EXPECT_EQ(LoadIndString(20000, 1, buffer, 64), 17);
  EXPECT_STREQ(buffer, "Hide Ledger Lines");
  EXPECT_EQ(LoadIndString(20000, 1, buffer, 5), 4);
  EXPECT_STREQ(buffer, "Hide");
  EXPECT_EQ(LoadIndString(20000, 1, buffer, 1), 0);
  EXPECT_STREQ(buffer, "");
}

TEST_F(StringResources, LoadIndStringIsZeroForASizeOfZeroAndWritesNothing) {
  for (const int size : {0, 0x10000, -1, -32768}) {
    char buffer[] = "left";
    EXPECT_EQ(LoadIndString(20000, 1, buffer, size), 0) << size;
    EXPECT_STREQ(buffer, "left") << size;
  }
}

TEST_F(StringResources, LoadIndStringReadsTheLowSixteenBitsOfItsNumbers) {
  char buffer[64];
  EXPECT_EQ(LoadIndString(0x70000 + 20000, 0x70001, buffer, 0x70005), 4);
  EXPECT_STREQ(buffer, "Hide");
  EXPECT_EQ(LoadIndString(0, -1, buffer, 64), 2);
  EXPECT_STREQ(buffer, "-1");
}

TEST_F(StringResources, ACopyBelongsToTheCaller) {
  const CFStringRef text = CopyPlugInStringResource(0x4E200001);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(CFStringGetLength(text), 17);
  CFRelease(text);
}

TEST(ByteStrings, CompareWithoutRegardToCase) {
  EXPECT_EQ(stricmp("abc", "ABC"), 0);
  EXPECT_EQ(stricmp("abc", "ABD"), -1);
  EXPECT_EQ(stricmp("ABD", "abc"), 1);
  EXPECT_EQ(stricmp("", ""), 0);
  EXPECT_EQ(stricmp("", "a"), -1);
  EXPECT_EQ(stricmp("ab", "abc"), -1);
  EXPECT_EQ(stricmp("abc", "ab"), 1);
}

TEST(ByteStrings, SortHighBytesBeforeEverythingElse) {
  EXPECT_EQ(stricmp("ab", "ab\xE9"), 1);
  EXPECT_EQ(stricmp("ab\xE9", "ab"), -1);
  EXPECT_EQ(stricmp("\xE9", "a"), -1);
  EXPECT_EQ(stricmp("\xFF", "\x01"), -1);
  EXPECT_EQ(stricmp("\x7F", "\x80"), 1);
  EXPECT_EQ(stricmp("\x80", "\xE9"), -1);
}

TEST(ByteStrings, SortHighBytesTheSameWhereTheyCount) {
  EXPECT_EQ(strnicmp("ab", "ab\xE9", 2), 0);
  EXPECT_EQ(strnicmp("ab", "ab\xE9", 3), 1);
  EXPECT_EQ(strnicmp("ab\xE9", "ab", 3), -1);
  EXPECT_EQ(strnicmp("A\x80", "a\xE9", 2), -1);
  EXPECT_EQ(strnicmp("\xE9", "a", 1), -1);
}

// The letters of other alphabets have no case: 0xC9 and 0xE9 are the two of one letter in ISO Latin 1.
TEST(ByteStrings, TakeAHighByteAsItIs) {
  EXPECT_EQ(stricmp("caf\xE9", "CAF\xE9"), 0);
  EXPECT_EQ(strnicmp("caf\xE9", "CAF\xE9", 9), 0);
  EXPECT_EQ(stricmp("\xC9", "\xE9"), -1);
}

TEST(ByteStrings, CompareNoMoreThanTheCount) {
  EXPECT_EQ(strnicmp("ABC", "abd", 2), 0);
  EXPECT_EQ(strnicmp("ABC", "abd", 3), -1);
  EXPECT_EQ(strnicmp("a", "b", 0), 0);
  EXPECT_EQ(strnicmp("ab", "ab", 9), 0);
}

TEST(ByteStrings, DifferFromTheirOwnBeginningAsFromAnyText) {
  EXPECT_EQ(strnicmp("ab", "abc", 2), 0);
  for (const std::size_t count : {std::size_t{3}, std::size_t{4}, std::size_t{9}, SIZE_MAX}) {
    EXPECT_EQ(strnicmp("ab", "abc", count), -1) << count;
    EXPECT_EQ(strnicmp("ABC", "ab", count), 1) << count;
    EXPECT_EQ(strnicmp("", "a", count), -1) << count;
    EXPECT_EQ(strnicmp("a", "", count), 1) << count;
  }
}

TEST(ByteStrings, WriteNumbersInDecimal) {
  char buffer[12];
  EXPECT_EQ(num2str(0, buffer), 1);
  EXPECT_STREQ(buffer, "0");
  EXPECT_EQ(num2str(2147483647, buffer), 10);
  EXPECT_STREQ(buffer, "2147483647");
  EXPECT_EQ(num2str(-2147483647 - 1, buffer), 11);
  EXPECT_STREQ(buffer, "-2147483648");
}

}  // namespace
