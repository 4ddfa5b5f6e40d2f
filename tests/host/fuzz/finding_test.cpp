#include "host/fuzz/finding.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

bool AreAlikeAs(FindingKind kind, const char* a, const char* b) { return AreAlike({kind, a}, {kind, b}); }

TEST(Findings, AreAlikeWhateverTheirNumbers) {
  EXPECT_TRUE(AreAlikeAs(FindingKind::kEdits, "item 0 leaves an edit open", "item 12 leaves an edit open"));
  EXPECT_FALSE(
      AreAlikeAs(FindingKind::kEdits, "item 0 leaves an edit open", "item 0 leaves the progress display open"));
  EXPECT_FALSE(AreAlike({FindingKind::kCrash, "ends"}, {FindingKind::kExit, "ends"}));
}

TEST(Findings, OfFramesAreAlikeHoweverOften) {
  EXPECT_TRUE(AreAlikeAs(FindingKind::kFrames, "item 0 frees a frame that is not loaded",
                         "item 1 frees a frame that is not loaded (3 times)"));
}

TEST(Findings, OfHangsAreAlikeWhateverWasCalled) {
  EXPECT_TRUE(AreAlikeAs(FindingKind::kHang, "does not return in BrevixExtensionInvoke within 1 second",
                         "does not return in BX_LoadTGF, called in BrevixExtensionInvoke within 1 second"));
  EXPECT_FALSE(AreAlikeAs(FindingKind::kHang, "does not return in BrevixExtensionInvoke within 1 second",
                          "does not return in BrevixExtensionTerminate within 1 second"));
  EXPECT_TRUE(AreAlikeAs(FindingKind::kHang, "does not return", "does not return"));
}

}  // namespace
}  // namespace brvhost
