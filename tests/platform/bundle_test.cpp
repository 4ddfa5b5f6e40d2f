// Bundles and the functions in them.
#include <brvplatform.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ownbundle.h"

namespace {

TEST_F(OwnBundle, WithoutAnExecutableHasNoFunctions) {
  Open("{ CFBundleIdentifier = x; }");
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("main")), nullptr);
  EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle_));
  EXPECT_EQ(CFBundleCopyExecutableURL(bundle_), nullptr);
}

TEST_F(OwnBundle, WhoseExecutableIsMissingHasNoFunctions) {
  Open("{ CFBundleExecutable = nothere; }");
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("main")), nullptr);
  EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle_));
}

TEST_F(OwnBundle, IsFoundByItsIdentifierAsLongAsItLives) {
  Open("{ CFBundleIdentifier = \"org.example.own\"; }");
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.own")), bundle_);
  EXPECT_TRUE(CFEqual(CFBundleGetIdentifier(bundle_), CFSTR("org.example.own")));
  CFRelease(bundle_);
  bundle_ = nullptr;
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.own")), nullptr);
}

TEST_F(OwnBundle, IsOneObjectForItsFolder) {
  Open("{ CFBundleIdentifier = \"org.example.one\"; }");
  const CFBundleRef again = CreateBundle(Contents() / "..");
  EXPECT_EQ(again, bundle_);
  CFRelease(again);
  EXPECT_EQ(CFBundleGetBundleWithIdentifier(CFSTR("org.example.one")), bundle_) << "the first is held still";
}

TEST_F(OwnBundle, KnowsXmlByItsFirstTagWhateverBlanksComeBefore) {
  for (const char* const start : {"<?xml version='1.0'?>", "<!DOCTYPE plist>", ""}) {
    for (const char* const blanks : {"", " ", "\t", "\r\n", "\n \t"}) {
      SCOPED_TRACE(testing::Message() << start << " after " << testing::PrintToString(blanks));
      // A declaration stands at the very start, or the document is not well formed.
      const std::string declared = *start == '<' && start[1] == '?' ? "" : blanks;
      Open(declared + start +
           "<plist version='1.0'><dict><key>CFBundleIdentifier</key><string>x.y</string></dict></plist>");
      ASSERT_NE(CFBundleGetIdentifier(bundle_), nullptr);
      EXPECT_TRUE(CFEqual(CFBundleGetIdentifier(bundle_), CFSTR("x.y")));
      CFRelease(bundle_);
    }
  }
  bundle_ = nullptr;
}

TEST_F(OwnBundle, ReadsItsTable) {
  Open("{}", "/* a */ \"k\" = \"v\\n\\\"\\U00e9\"; // b\nplain = word; lone;");
  EXPECT_EQ(Text(CFSTR("k")), "v\n\"\u00e9");
  EXPECT_EQ(Text(CFSTR("plain")), "word");
  EXPECT_EQ(Text(CFSTR("lone")), "lone");
  EXPECT_EQ(Text(CFSTR("missing")), "missing");
}

TEST_F(OwnBundle, ReadsWordsWithoutQuotesFromAToZAndFrom0To9) {
  Open("{}", "aAzZ09 = zebra/Zebra:9.0-_$; Z = Z; z = z; A = A; a = a; _ = 0; $ = 9;");
  EXPECT_EQ(Text(CFSTR("aAzZ09")), "zebra/Zebra:9.0-_$");
  EXPECT_EQ(Text(CFSTR("Z")), "Z");
  EXPECT_EQ(Text(CFSTR("z")), "z");
  EXPECT_EQ(Text(CFSTR("A")), "A");
  EXPECT_EQ(Text(CFSTR("a")), "a");
  EXPECT_EQ(Text(CFSTR("_")), "0");
  EXPECT_EQ(Text(CFSTR("$")), "9");
}

// The units beside the ends of those ranges.
class NoWord : public OwnBundle, public testing::WithParamInterface<char> {};

TEST_P(NoWord, IsMadeOf) {
  Open("{}", std::string("before = text; after = ") + GetParam() + ";");
  EXPECT_EQ(Text(CFSTR("before")), "before");
}

INSTANTIATE_TEST_SUITE_P(Units, NoWord, testing::Values('@', '[', '`', '{', ',', ';', '#', '%', '^', '+'));

TEST_F(OwnBundle, ReadsHexDigitsOfDataFrom0ToFAndNoOthers) {
  Open("{}", "data = <09 AF af>; k = v;");
  EXPECT_EQ(Text(CFSTR("k")), "v");
  EXPECT_EQ(Text(CFSTR("data")), "data");
  CFRelease(bundle_);
  Open("{}", "data = <0g>; k = v;");
  EXPECT_EQ(Text(CFSTR("k")), "k");
}

TEST_F(OwnBundle, LosesATableWithASyntaxErrorWhole) {
  Open("{}", "a = one; b = ;");
  EXPECT_EQ(Text(CFSTR("a")), "a");
}

TEST_F(OwnBundle, LosesATableInBracesWithoutTheLast) {
  Open("{}", "{ a = one; ");
  EXPECT_EQ(Text(CFSTR("a")), "a");
  CFRelease(bundle_);
  Open("{}", "{ a = one; }");
  EXPECT_EQ(Text(CFSTR("a")), "one");
}

TEST_F(OwnBundle, ReadsATableOfManyTexts) {
  std::string table;
  for (int i = 0; i < 1000; ++i) table += "k" + std::to_string(i) + " = (v, v);\n";
  Open("{}", table + "last = v;");
  EXPECT_EQ(Text(CFSTR("last")), "v");
}

// The units of a text of ASCII as UTF-32, with the mark.
std::string Utf32(std::u32string text, bool bigEndian) {
  text.insert(0, 1, U'\uFEFF');
  std::string bytes;
  for (const char32_t unit : text) {
    for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<char>(unit >> 8 * (bigEndian ? 3 - i : i)));
  }
  return bytes;
}

TEST_F(OwnBundle, ReadsATableInUtf32) {
  for (const bool bigEndian : {false, true}) {
    Open("{}", Utf32(U"k = \"\u00e9 \U0001D11E\";", bigEndian));
    EXPECT_EQ(Text(CFSTR("k")), "\u00e9 \U0001D11E");
    CFRelease(bundle_);
  }
  bundle_ = nullptr;
}

TEST_F(OwnBundle, LosesATableOfBrokenUtf32) {
  const std::u32string text = U"k = v;";
  for (const std::string& table : {Utf32(text, true) + "\n", Utf32(text, false) + "\n\n", Utf32(text, false) + "\n\n\n",
                                   Utf32(text + char32_t{0xD800}, true), Utf32(text + char32_t{0xDFFF}, false),
                                   Utf32(text + char32_t{0x110000}, true)}) {
    Open("{}", table);
    EXPECT_EQ(Text(CFSTR("k")), "k");
    CFRelease(bundle_);
  }
  bundle_ = nullptr;
}

TEST_F(OwnBundle, LosesATableThatIsNestedTooDeep) {
  Open("{}", "a = one; b = " + std::string(1000000, '('));
  EXPECT_EQ(Text(CFSTR("a")), "a");
}

class HostBundle : public testing::Test {
 protected:
  void TearDown() override { CFRelease(bundle_); }

  CFBundleRef bundle_ = CreateBundle(BRV_BINARY_DIR "/testhost/RecordingHost.bundle");
};

TEST_F(HostBundle, GivesTheFunctionsOfItsOwnExecutable) {
  EXPECT_NE(CFBundleGetFunctionPointerForName(bundle_, CFSTR("BX_GetMaxLayers")), nullptr);
  EXPECT_TRUE(CFBundleIsExecutableLoaded(bundle_));
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("BX_NoSuchFunction")), nullptr);
}

TEST_F(HostBundle, GivesNoFunctionOfAnotherImage) {
  EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle_, CFSTR("malloc")), nullptr);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), CFSTR("BX_GetMaxLayers")), nullptr);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), CFSTR("CFRetain")), nullptr)
      << "though the program finds it";
}

TEST_F(HostBundle, KnowsItsExecutable) {
  EXPECT_EQ(TakePath(CFBundleCopyExecutableURL(bundle_)).filename(), "RecordingHost.so");
}

extern "C" __attribute__((visibility("default"))) int BrvFunctionOfTheProgram() { return 42; }

TEST(MainBundle, GivesTheFunctionsOfTheProgram) {
  void* const found = CFBundleGetFunctionPointerForName(CFBundleGetMainBundle(), CFSTR("BrvFunctionOfTheProgram"));
  EXPECT_EQ(found, reinterpret_cast<void*>(&BrvFunctionOfTheProgram));
  EXPECT_TRUE(CFBundleIsExecutableLoaded(CFBundleGetMainBundle()));
}

struct Lookup {
  CFBundleRef bundle;
  std::string name;
  void* address;
  bool operator==(const Lookup&) const = default;
};

int anything = 0;

void* Record(void* lookups, CFBundleRef bundle, const char* name, void* address) {
  static_cast<std::vector<Lookup>*>(lookups)->push_back({bundle, name, address});
  return &anything;
}

TEST(FunctionFinder, DecidesWhatIsFound) {
  const CFBundleRef program = CFBundleGetMainBundle();
  std::vector<Lookup> lookups;
  BrvPlatformSetFunctionFinder(Record, &lookups);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(program, CFSTR("BrvFunctionOfTheProgram")), &anything);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(program, CFSTR("BrvNoSuchFunction")), &anything);
  BrvPlatformSetFunctionFinder(nullptr, nullptr);
  EXPECT_EQ(CFBundleGetFunctionPointerForName(program, CFSTR("BrvNoSuchFunction")), nullptr);
  EXPECT_EQ(lookups, (std::vector<Lookup>{
                         {program, "BrvFunctionOfTheProgram", reinterpret_cast<void*>(&BrvFunctionOfTheProgram)},
                         {program, "BrvNoSuchFunction", nullptr}}));
}

}  // namespace
