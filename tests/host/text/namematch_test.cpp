#include "host/text/namematch.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

TEST(MatchOf, TellsTheWholeFromItsStartAndAPart) {
  EXPECT_EQ(MatchOf("hide ledger lines", "Hide Ledger Lines"), NameMatch::kWhole);
  EXPECT_EQ(MatchOf("HIDE", "Hide Ledger Lines"), NameMatch::kStart);
  EXPECT_EQ(MatchOf("lines", "Hide Ledger Lines"), NameMatch::kContained);
  EXPECT_EQ(MatchOf("show", "Hide Ledger Lines"), NameMatch::kNone);
  EXPECT_EQ(MatchOf("L\u00CDNEAS", "Ocultar las l\u00EDneas"), NameMatch::kContained);
}

TEST(MatchOf, IsNoneForAnEmptyName) {
  EXPECT_EQ(MatchOf("", "Hide"), NameMatch::kNone);
  EXPECT_EQ(MatchOf("", ""), NameMatch::kNone);
}

}  // namespace
}  // namespace brvhost
