#include <gtest/gtest.h>

#include <string>

#include "brevixpdk.h"

namespace {

std::string Printed(const std::string& text) {
  testing::internal::CaptureStderr();
  DbgPrintF("%s", text.c_str());
  return testing::internal::GetCapturedStderr();
}

TEST(DbgPrintF, FormatsLikePrintf) {
  testing::internal::CaptureStderr();
  DbgPrintF("measure %d, %s, %.2f%%", -3, "layer", 1.5);
  EXPECT_EQ(testing::internal::GetCapturedStderr().substr(0, 24), "measure -3, layer, 1.50%");
}

TEST(DbgPrintF, EndsWithALineBreak) { EXPECT_EQ(Printed("a").substr(0, 2), "a\n"); }

TEST(DbgPrintF, CutsOutputAt4095Characters) {
  const std::string printed = Printed(std::string(5000, 'x'));
  EXPECT_EQ(printed.substr(0, 4096), std::string(4095, 'x') + "\n");
  EXPECT_EQ(printed.find('x', 4096), std::string::npos);
}

TEST(DbgPrintF, KeepsNothingOfAnEarlierLine) {
  Printed("a long line");
  EXPECT_EQ(Printed("b").substr(0, 2), "b\n");
}

}  // namespace
