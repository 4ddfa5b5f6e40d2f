// Ranges of strings, and the encodings that are in no table.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include "ownbundle.h"
#include "vectors.h"

namespace {

constexpr UniChar kUntouched = 0xAAAA;

std::u16string Characters(const std::u16string& text, CFIndex location, CFIndex length) {
  const CFStringRef string = MakeString(text);
  std::u16string units(text.size() + 1, char16_t{kUntouched});
  CFStringGetCharacters(string, CFRangeMake(location, length), reinterpret_cast<UniChar*>(units.data()));
  CFRelease(string);
  EXPECT_EQ(units[static_cast<std::size_t>(length)], kUntouched) << "more than the range";
  return units.substr(0, static_cast<std::size_t>(length));
}

struct Converted {
  CFIndex units;
  CFIndex size;
  std::string bytes;
  bool operator==(const Converted&) const = default;
};

// What printing a failure shows.
std::ostream& operator<<(std::ostream& out, const Converted& converted) {
  return out << converted.units << " units, " << converted.size << " bytes: " << HexOfBytes(converted.bytes);
}

Converted Bytes(const std::u16string& text, CFStringEncoding encoding, CFRange range, std::size_t room = 64) {
  const CFStringRef string = MakeString(text);
  std::string bytes(room, '\xAA');
  Converted converted{0, -1, ""};
  converted.units = CFStringGetBytes(string, range, encoding, '?', false, reinterpret_cast<UInt8*>(bytes.data()),
                                     static_cast<CFIndex>(room), &converted.size);
  CFRelease(string);
  converted.bytes = bytes.substr(0, static_cast<std::size_t>(converted.size));
  EXPECT_EQ(bytes.find_first_not_of('\xAA', converted.bytes.size()), std::string::npos) << "more than it reports";
  return converted;
}

Converted Bytes(const std::u16string& text, CFStringEncoding encoding, std::size_t room = 64) {
  return Bytes(text, encoding, CFRangeMake(0, static_cast<CFIndex>(text.size())), room);
}

std::u16string Text(const std::string& bytes, CFStringEncoding encoding) {
  const CFStringRef string = CFStringCreateWithCString(kCFAllocatorDefault, bytes.c_str(), encoding);
  return UnitsFromHex(TakeHex(string));
}

TEST(Characters, AreThoseOfTheRange) {
  EXPECT_EQ(Characters(u"abcdef", 0, 6), u"abcdef");
  EXPECT_EQ(Characters(u"abcdef", 2, 3), u"cde");
  EXPECT_EQ(Characters(u"abcdef", 5, 1), u"f");
  EXPECT_EQ(Characters(u"abcdef", 6, 0), u"");
  EXPECT_EQ(Characters(u"a\U0001D11Eb", 2, 2), std::u16string({0xDD1E, u'b'})) << "a range may begin inside of a pair";
}

TEST(Bytes, AreThoseOfTheRange) {
  EXPECT_EQ(Bytes(u"abcdef", kCFStringEncodingASCII, CFRangeMake(2, 3)), (Converted{3, 3, "cde"}));
  EXPECT_EQ(Bytes(u"ab\u00e9def", kCFStringEncodingMacRoman, CFRangeMake(2, 2)), (Converted{2, 2, "\x8E\x64"}));
  EXPECT_EQ(Bytes(u"ab\u00e9def", kCFStringEncodingUTF8, CFRangeMake(1, 2)), (Converted{2, 3, "b\u00e9"}));
  EXPECT_EQ(Bytes(u"abc", kCFStringEncodingUTF16BE, CFRangeMake(1, 1)), (Converted{1, 2, std::string("\0b", 2)}));
  EXPECT_EQ(Bytes(u"abc", kCFStringEncodingUTF8, CFRangeMake(3, 0)), (Converted{0, 0, ""}));
}

TEST(Bytes, OfARangeAfterTheEndAreNone) {
  EXPECT_EQ(Bytes(u"abc", kCFStringEncodingUTF8, CFRangeMake(4, 1)), (Converted{0, 0, ""}));
  EXPECT_EQ(Bytes(u"abc", kCFStringEncodingUTF8, CFRangeMake(-1, 1)), (Converted{0, 0, ""}));
}

TEST(Bytes, OfAnUnknownEncodingAreNone) {
  EXPECT_EQ(Bytes(u"abc", CFStringEncoding{0x7777}), (Converted{0, 0, ""}));
  EXPECT_EQ(CFStringCreateWithCString(kCFAllocatorDefault, "abc", CFStringEncoding{0x7777}), nullptr);
}

TEST(Utf16, IsWrittenInTheOrderOfItsNameWithoutAMark) {
  using namespace std::string_literals;
  const std::u16string text = u"a\u3042\U0001D11E";
  EXPECT_EQ(Bytes(text, kCFStringEncodingUTF16BE), (Converted{4, 8, "\x00\x61\x30\x42\xD8\x34\xDD\x1E"s}));
  EXPECT_EQ(Bytes(text, kCFStringEncodingUTF16LE), (Converted{4, 8, "\x61\x00\x42\x30\x34\xD8\x1E\xDD"s}));
  // The machine's own order.
  EXPECT_EQ(Bytes(text, kCFStringEncodingUTF16), (Converted{4, 8, "\x61\x00\x42\x30\x34\xD8\x1E\xDD"s}));
}

TEST(Utf16, IsWrittenAsFarAsWholeUnitsFit) {
  EXPECT_EQ(Bytes(u"\u3042\u3044", kCFStringEncodingUTF16BE, 3), (Converted{1, 2, "\x30\x42"}));
  EXPECT_EQ(Bytes(u"\u3042\u3044", kCFStringEncodingUTF16LE, 1), (Converted{0, 0, ""}));
}

TEST(Utf16, IsReadInTheOrderOfItsName) {
  EXPECT_EQ(Text("\x30\x42\xD8\x34\xDD\x1E", kCFStringEncodingUTF16BE), u"\u3042\U0001D11E");
  EXPECT_EQ(Text("\x42\x30\x34\xD8\x1E\xDD", kCFStringEncodingUTF16LE), u"\u3042\U0001D11E");
}

TEST(Utf16, IsReadByItsMarkElseInTheMachinesOrder) {
  EXPECT_EQ(Text("\xFE\xFF\x30\x42", kCFStringEncodingUTF16), u"\u3042");
  EXPECT_EQ(Text("\xFF\xFE\x42\x30", kCFStringEncodingUTF16), u"\u3042");
  EXPECT_EQ(Text("\x42\x30", kCFStringEncodingUTF16), u"\u3042");
}

TEST(Utf16, NeedsTwoBytesAUnit) {
  EXPECT_EQ(CFStringGetMaximumSizeForEncoding(3, kCFStringEncodingUTF16), 6);
  EXPECT_EQ(CFStringGetMaximumSizeForEncoding(3, kCFStringEncodingUTF16BE), 6);
  EXPECT_EQ(CFStringGetMaximumSizeForEncoding(3, kCFStringEncodingUTF16LE), 6);
}

TEST(Utf8, HasEachCodePointInItsLength) {
  EXPECT_EQ(Bytes(u"\u007F\u0080", kCFStringEncodingUTF8), (Converted{2, 3, "\x7F\xC2\x80"}));
  EXPECT_EQ(Bytes(u"\u07FF\u0800", kCFStringEncodingUTF8), (Converted{2, 5, "\xDF\xBF\xE0\xA0\x80"}));
  EXPECT_EQ(Bytes(u"\uFFFF\U00010000", kCFStringEncodingUTF8), (Converted{3, 7, "\xEF\xBF\xBF\xF0\x90\x80\x80"}));
  EXPECT_EQ(Bytes(u"\U0010FFFF", kCFStringEncodingUTF8), (Converted{2, 4, "\xF4\x8F\xBF\xBF"}));
  EXPECT_EQ(Text("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80", kCFStringEncodingUTF8), u"\u007F\u0080\u07FF\u0800");
  EXPECT_EQ(Text("\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", kCFStringEncodingUTF8), u"\uFFFF\U00010000\U0010FFFF");
}

TEST(Utf8, HasNoOtherSequences) {
  for (const char* const bytes :
       {"\x80", "\xBF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
        "\xF8\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "\xC3", "\xC3("}) {
    EXPECT_EQ(CFStringCreateWithCString(kCFAllocatorDefault, bytes, kCFStringEncodingUTF8), nullptr)
        << HexOfBytes(bytes);
  }
}

TEST(Marks, WithoutACharacterGiveTheLossByteEach) {
  EXPECT_EQ(Bytes(u"\u0301", kCFStringEncodingMacRoman), (Converted{1, 1, "?"}));
  EXPECT_EQ(Bytes(u"\u0301\u0302a", kCFStringEncodingMacRoman), (Converted{3, 3, "??a"}));
}

TEST(LoneSurrogates, AreWhatTheEndOfARangeLeavesOfAPair) {
  EXPECT_EQ(Bytes(u"a\U0001D11E", kCFStringEncodingUTF8, CFRangeMake(0, 2)), (Converted{1, 1, "a"}));
  EXPECT_EQ(Bytes(u"a\U0001D11E", kCFStringEncodingUTF8, CFRangeMake(2, 1)), (Converted{0, 0, ""}));
}

TEST(LoneSurrogates, EndWhatIsWrittenAsUtf8) {
  EXPECT_EQ(Bytes({u'a', 0xD834, u'b'}, kCFStringEncodingUTF8), (Converted{1, 1, "a"}));
  EXPECT_EQ(Bytes({0xDD1E, 0xD834}, kCFStringEncodingUTF8), (Converted{0, 0, ""}));
}

TEST(LoneSurrogates, AreUnitsLikeOthersInUtf16) {
  EXPECT_EQ(Bytes({0xD834, u'b'}, kCFStringEncodingUTF16BE), (Converted{2, 4, std::string("\xD8\x34\0b", 4)}));
  EXPECT_EQ(Text("\xD8\x34\x30\x42", kCFStringEncodingUTF16BE), std::u16string({0xD834, 0x3042}));
}

TEST(LoneSurrogates, GiveTheLossByteInBytes) {
  EXPECT_EQ(Bytes({u'a', 0xD834, u'b'}, kCFStringEncodingMacRoman), (Converted{3, 3, "a?b"}));
  EXPECT_EQ(Bytes({u'a', 0xDD1E, u'b'}, kCFStringEncodingASCII), (Converted{3, 3, "a?b"}));
}

TEST(Bytes, NeedNoPlaceForTheirNumber) {
  char bytes[4] = "";
  EXPECT_EQ(CFStringGetBytes(CFSTR("abc"), CFRangeMake(0, 3), kCFStringEncodingUTF8, '?', false,
                             reinterpret_cast<UInt8*>(bytes), 3, nullptr),
            3);
  EXPECT_STREQ(bytes, "abc");
}

TEST(CStrings, AreWholeOrNone) {
  char bytes[8] = "old";
  EXPECT_FALSE(CFStringGetCString(CFSTR("abc"), bytes, 0, kCFStringEncodingUTF8));
  EXPECT_FALSE(CFStringGetCString(CFSTR("abc"), bytes, 3, kCFStringEncodingUTF8));
  EXPECT_TRUE(CFStringGetCString(CFSTR("abc"), bytes, 4, kCFStringEncodingUTF8));
  EXPECT_STREQ(bytes, "abc");
}

TEST(Format, TakesALongDoubleInItsPlace) {
  const CFStringRef text =
      CFStringCreateWithFormat(kCFAllocatorDefault, nullptr, CFSTR("%d %.3Lf %.1f %Le %d"), 1, 2.5L, 3.5, 4.0L, 5);
  EXPECT_TRUE(CFEqual(text, CFSTR("1 2.500 3.5 4.000000e+00 5")));
  CFRelease(text);
}

TEST(Equality, IsThatOfTheUnitsOrOfThePath) {
  const CFURLRef url = MakeURL("/a");
  const CFURLRef same = MakeURL("/a");
  const CFURLRef other = MakeURL("/b");
  EXPECT_TRUE(CFEqual(url, same));
  EXPECT_FALSE(CFEqual(url, other));
  EXPECT_FALSE(CFEqual(url, CFSTR("/a")));
  EXPECT_FALSE(CFEqual(CFSTR("/a"), url));
  for (const CFURLRef each : {url, same, other}) CFRelease(each);
}

}  // namespace
