// What CFShow prints, to the last byte.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include "ownbundle.h"
#include "vectors.h"

namespace {

std::string Shown(CFTypeRef object) {
  testing::internal::CaptureStderr();
  CFShow(object);
  return testing::internal::GetCapturedStderr();
}

std::string ShownText(const std::u16string& units) {
  const CFStringRef string = MakeString(units);
  const std::string shown = Shown(string);
  CFRelease(string);
  return shown;
}

TEST(Show, EndsTheLineOfAText) {
  EXPECT_EQ(ShownText(u"a text"), "a text\n");
  EXPECT_EQ(ShownText(u"two\nlines"), "two\nlines\n");
}

TEST(Show, AddsNoLineBreakToOne) {
  EXPECT_EQ(ShownText(u"a line\n"), "a line\n");
  EXPECT_EQ(ShownText(u"an empty one behind it\n\n"), "an empty one behind it\n\n");
  EXPECT_EQ(ShownText(u"\n"), "\n");
}

TEST(Show, TakesACarriageReturnForNoLineBreak) { EXPECT_EQ(ShownText(u"a\r"), "a\r\n"); }

TEST(Show, GivesAnEmptyTextALine) { EXPECT_EQ(ShownText(u""), "\n"); }

TEST(Show, GivesNoObjectALine) { EXPECT_EQ(Shown(nullptr), "(null)\n"); }

TEST(Show, WritesUtf8) { EXPECT_EQ(ShownText(u"\u00e9 \u266f \U0001D11E"), "\u00e9 \u266f \U0001D11E\n"); }

TEST(Show, PutsAQuestionMarkForEachLoneSurrogate) {
  EXPECT_EQ(ShownText({u'a', 0xD834, u'b'}), "a?b\n");
  EXPECT_EQ(ShownText({0xDD1E, 0xD834}), "??\n");
  EXPECT_EQ(ShownText({0xD834, 0xD834, 0xDD1E, u'\n'}), "?\U0001D11E\n");
}

TEST(Show, WritesWhatFollowsAZero) {
  using namespace std::string_literals;
  EXPECT_EQ(ShownText(u"a\0b"s), "a\0b\n"s);
  EXPECT_EQ(ShownText(u"a\0\n"s), "a\0\n"s);
}

TEST_F(OwnBundle, IsShownWithItsFolderInOneLine) {
  Open("{}");
  EXPECT_EQ(Shown(bundle_), "CFBundle " + Folder().native() + "\n");
}

TEST(Show, WritesThePathOfAURLInOneLine) {
  const CFURLRef url = MakeURL("/a folder/a file");
  EXPECT_EQ(Shown(url), "/a folder/a file\n");
  CFRelease(url);
}

}  // namespace
