// Where a file of texts is none.
#include "host/bundle/textfaults.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

// "line: what", or "none".
std::string FaultIn(std::string_view text) {
  const auto fault = FirstFaultIn(text);
  return fault ? std::to_string(fault->line) + ": " + fault->what : "none";
}

TEST(TextFaults, AreNoneInWhatIsRight) {
  for (const char* const text :
       {"", " \n", "\"a\" = \"b\";", "// [One] ;\n/* * ** \"x\" [ */ \"1\" = \"a\nb\"; key = value;\n",
        "\"2\"=\"\\\\\";\t\"3\";", "\"a\\\"\" = \"; \\\" b\";/***/", "a = (1, 2", "a = {", "a = <00>", "//"}) {
    EXPECT_EQ(FaultIn(text), "none") << text;
  }
}

TEST(TextFaults, AreFoundWithTheirLine) {
  const std::string pair = "\"2\" should be followed by = \"its text\" and a semicolon";
  EXPECT_EQ(FaultIn("/* One.\n*/\n\"2\" = \"b\"\n\"3\" = \"c\";"), "3: " + pair);
  EXPECT_EQ(FaultIn("\"2\" \"b\";"), "1: " + pair);
  EXPECT_EQ(FaultIn("\n\"2\" = \"b\""), "2: " + pair);
  EXPECT_EQ(FaultIn("\"2\""), "1: " + pair);
  EXPECT_EQ(FaultIn("\"2\" = ;"), "1: \"2\" has no text after its =");
  EXPECT_EQ(FaultIn("\"2\" = "), "1: \"2\" has no text after its =");
  EXPECT_EQ(FaultIn("\"1\" = \"a\";\n\n\"2\" = \"b;\n"), "3: the quotation mark has no second one");
  EXPECT_EQ(FaultIn("\"1\" = \"a\";\n\"2\\"), "2: the quotation mark has no second one");
  EXPECT_EQ(FaultIn("\"1\" = \"a\";;\n"), "1: here should be a key in quotation marks");
  EXPECT_EQ(FaultIn("\"1\" = \"a\";\n/* Two.\n"), "2: the comment has no end");
  EXPECT_EQ(FaultIn("\"2\" /*"), "1: the comment has no end");
}

}  // namespace
}  // namespace brvhost
