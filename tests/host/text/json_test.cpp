#include "host/text/json.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace brvhost {
namespace {

TEST(Json, LeavesPlainTextAsItIs) { EXPECT_EQ(JsonOf("a b/c~'"), "\"a b/c~'\""); }

TEST(Json, EscapesWhatATextCannotHoldAndWhatATerminalWouldObey) {
  EXPECT_EQ(JsonOf("\"\\"), R"("\"\\")");
  EXPECT_EQ(JsonOf(std::string_view("\0\n\x1B\x7F", 4)), R"("\u0000\u000a\u001b\u007f")");
  EXPECT_EQ(JsonOf("\xC2\x85\xE2\x80\xAE"), R"("\u0085\u202e")");
}

TEST(Json, IsAsciiWhateverTheText) {
  EXPECT_EQ(JsonOf("\xC3\xA9"), R"("\u00e9")");
  EXPECT_EQ(JsonOf("\xEF\xBF\xBF"), R"("\uffff")");
  EXPECT_EQ(JsonOf("\xF0\x90\x80\x80\xF0\x9D\x84\x9E\xF4\x8F\xBF\xBF"), R"("\ud800\udc00\ud834\udd1e\udbff\udfff")");
}

TEST(Json, ReplacesWhatIsNotUtf8) {
  EXPECT_EQ(JsonOf("a\xFFz"), R"("a\ufffdz")");
  EXPECT_EQ(JsonOf("\xC3"), R"("\ufffd")");
}

TEST(Json, ObjectsKeepTheOrderOfTheirMembers) {
  EXPECT_EQ(JsonObject().Text(), "{}");
  JsonObject object;
  object.AddText("b", "x")
      .AddNumber("a", 18446744073709551615u)
      .AddFlag("yes", true)
      .AddFlag("no", false)
      .AddNull("none");
  object.AddJson("list", JsonArrayOfTexts({"x", "\""})).AddJson("empty", JsonArrayOf({}));
  EXPECT_EQ(object.Text(),
            R"({"b":"x","a":18446744073709551615,"yes":true,"no":false,"none":null,"list":["x","\""],"empty":[]})");
}

TEST(Json, PathsThatAreNotUtf8AreInBase64Too) {
  EXPECT_EQ(JsonObject().AddPath("score", "\xC3\xA9").Text(), R"({"score":"\u00e9"})");
  EXPECT_EQ(JsonObject().AddPath("score", "\xFF").Text(), R"({"score":"\ufffd","scoreBase64":"/w=="})");
  EXPECT_EQ(JsonObject().AddPath("a", "\xFF\xFE").Text(), R"({"a":"\ufffd\ufffd","aBase64":"//4="})");
  EXPECT_EQ(JsonObject().AddPath("a", "\xFFMan").Text(), R"({"a":"\ufffdMan","aBase64":"/01hbg=="})");
  EXPECT_EQ(JsonObject().AddPath("a", "\xE9t\xE9").Text(), R"({"a":"\ufffdt\ufffd","aBase64":"6XTp"})");
}

}  // namespace
}  // namespace brvhost
