// An extension's bundle in a program that is not linked with the kit.
#include "testextension.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "testscore.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;

constexpr const char* kBundle = BRV_BINARY_DIR "/LegerLines.bundle";

std::string ReasonAgainst(const std::string& path) {
  try {
    const TestExtension extension(path);
    return "none";
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

class Extension : public testing::Test {
 protected:
  static void SetUpTestSuite() { setenv("LANGUAGE", "en", 1); }

  RecordingHost host_;
};

TEST_F(Extension, OffersItsItemsWithTheirTexts) {
  const std::vector<TestExtension::Item> items = TestExtension(kBundle).Items();
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0].name, u"Hide Ledger Lines");
  EXPECT_EQ(items[0].undoName, u"Hide ledger lines");
  EXPECT_EQ(items[0].explanation, u"Hides the ledger lines of all notes in the selected region.");
  EXPECT_EQ(items[1].name, u"Show Ledger Lines");
}

TEST_F(Extension, ChangesTheScoreThatTheHostServes) {
  TestScore score(host_);
  score.Put({.staff = 2, .measure = 1}, {NoteAt(0), NoteAt(kQuarterNote)});
  EREGION region = score.Region();
  const TestExtension extension(kBundle);
  EXPECT_EQ(extension.Invoke(0, &region), 1);
  EXPECT_THAT(score.At({.staff = 2, .measure = 1}), Each(Field(&EXENTRY::flags, 0x40)));
  EXPECT_EQ(score.LoadedFrames(), 0);
}

TEST_F(Extension, AsksBeforeItTakesTheFallback) {
  TestScore score(host_);
  score.Put({}, {NoteAt(0)});
  EREGION region = score.Region();
  const TestExtension extension(kBundle);
  EXPECT_EQ(extension.Invoke(0, nullptr, &region), 0);
  EXPECT_THAT(host_.Names(), ElementsAre("BX_AlertMessage"));
  host_.Answer("BX_AlertMessage", kAlertYes);
  EXPECT_EQ(extension.Invoke(0, nullptr, &region), 1);
}

TEST_F(Extension, ThatIsNoneIsRefusedWithTheReason) {
  EXPECT_EQ(ReasonAgainst("/nowhere/None.bundle"), "/nowhere/None.bundle: there is no such bundle");
  const std::string empty = BRV_HOST_FOLDER "/EmptyHost.bundle";
  EXPECT_EQ(ReasonAgainst(empty), empty + ": the bundle does not load, or has no main");
}

}  // namespace
