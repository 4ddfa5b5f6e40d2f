// Everything that is printed is compared, to its last byte.
#include <gtest/gtest.h>

#include <string>

#include "brevixpdk.h"

namespace {

template <class... Arguments>
std::string Printed(const char* format, Arguments... arguments) {
  testing::internal::CaptureStderr();
  DbgPrintF(format, arguments...);
  return testing::internal::GetCapturedStderr();
}

TEST(DbgPrintF, FormatsLikePrintfAndEndsTheLine) {
  EXPECT_EQ(Printed("measure %d, %s, %.2f%%", -3, "layer", 1.5), "measure -3, layer, 1.50%\n");
}

TEST(DbgPrintF, EndsALineOnce) {
  EXPECT_EQ(Printed("%s", "a"), "a\n");
  EXPECT_EQ(Printed("%s", ""), "\n");
}

TEST(DbgPrintF, KeepsALineBreakOfTheTextBeforeItsOwn) { EXPECT_EQ(Printed("%s", "a\n"), "a\n\n"); }

TEST(DbgPrintF, CutsOutputAt4095Characters) {
  EXPECT_EQ(Printed("%s", std::string(5000, 'x').c_str()), std::string(4095, 'x') + "\n");
  EXPECT_EQ(Printed("%s", std::string(4095, 'x').c_str()), std::string(4095, 'x') + "\n");
}

TEST(DbgPrintF, KeepsNothingOfAnEarlierLine) {
  Printed("%s", "a long line");
  EXPECT_EQ(Printed("%s", "b"), "b\n");
}

}  // namespace
