// Before anything is chosen, in a process of its own.
#include <gtest/gtest.h>

#include "pitch.h"

namespace {

TEST(PitchFormattingAtFirst, IsInNumbers) {
  char text[32];
  BXUtilFormatPitch({0, 0}, text, sizeof(text));
  EXPECT_STREQ(text, "60");
}

}  // namespace
