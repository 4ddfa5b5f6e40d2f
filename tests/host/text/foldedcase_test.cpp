#include "host/text/foldedcase.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

TEST(FoldedCase, IsTheSameForTextsThatDifferInCaseAlone) {
  EXPECT_EQ(FoldedCase("VIOLIN i"), FoldedCase("Violin I"));
  EXPECT_EQ(FoldedCase("FL\u00D6TE"), FoldedCase("Fl\u00F6te"));
  EXPECT_EQ(FoldedCase("STRASSE"), FoldedCase("stra\u00DFe"));
  EXPECT_EQ(FoldedCase("\u0391\u03A3"), FoldedCase("\u03B1\u03C2")) << "with a final sigma";
  EXPECT_NE(FoldedCase("Violin I"), FoldedCase("Violin II"));
  EXPECT_NE(FoldedCase("Flote"), FoldedCase("Fl\u00F6te"));
}

TEST(FoldedCase, IsTheSameHoweverACharacterIsWritten) {
  EXPECT_EQ(FoldedCase("Fl\u00F6te"), FoldedCase("Flo\u0308te"));
  EXPECT_EQ(FoldedCase("Violin \u2160"), FoldedCase("Violin I"));
}

TEST(FoldedCase, TakesAnyBytes) {
  EXPECT_EQ(FoldedCase(""), "");
  EXPECT_EQ(FoldedCase("A\xFF"), "a\uFFFD");
}

}  // namespace
}  // namespace brvhost
