// Each host call fails in turn, in every function of the bundle that makes more than one: first that call alone, then
// that call and all after it, until no call is left to fail.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <set>

#include "brevixpdk.h"
#include "jobs.h"

namespace {

using Texts = std::vector<std::string>;

// A function, what it does in a job, and what comes of that when the first, second, ... call fails; the last text is
// what comes of it when none does.
struct Job {
  const char* function;
  const char* name;
  Outcome (*run)(FailingCalls failing);
  Texts whenOneFails;
  Texts whenAllAfterFailToo;
};

// The name of its tests.
std::ostream& operator<<(std::ostream& out, const Job& job) { return out << job.function << "_" << job.name; }

Texts Times(std::size_t count, const std::string& text) { return {count, text}; }

Texts operator+(Texts first, const Texts& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// A preference record of three legacy records, six words each.
std::string Row(const Texts& records) {
  std::string text = "1:";
  for (const std::string& word : records)
    for (int i = 0; i < 6; ++i) text += " " + word;
  return text;
}

// A function of the bundle that makes more than one host call has a row here; a test of the tree holds the list to the
// sources. Ext_... are other names of the entry points.
const std::vector<Job> kJobs = {
    {"BX_LoadEData",
     "LoadsAFretInstrument",
     LoadFretInstrument,
     {"0: cleared", "0: filled", "1: filled"},
     {"0: cleared", "0: filled", "1: filled"}},
    // A load that fails is not reported, and counts as zeros.
    {"BX_LoadEData",
     "LoadsARecordWithATable",
     LoadPlaybackPrefs,
     {"1: 0 39 36 36 37 37 37", "1: 13 0 36 36 37 37 37", "1: 13 39 0 0 37 37 37", "1: 13 39 36 36 0 0 0",
      "1: 13 39 36 36 37 37 37"},
     {"1: 0 0 0 0 0 0 0", "1: 13 0 0 0 0 0 0", "1: 13 39 0 0 0 0 0", "1: 13 39 36 36 0 0 0",
      "1: 13 39 36 36 37 37 37"}},
    {"BX_LoadEData",
     "LoadsARow",
     LoadRowOfThree,
     {Row({"0", "95", "96"}), Row({"94", "0", "96"}), Row({"94", "95", "0"}), Row({"94", "95", "96"})},
     {Row({"0", "0", "0"}), Row({"94", "0", "0"}), Row({"94", "95", "0"}), Row({"94", "95", "96"})}},
    // Neither is a save. The record that did not load is saved as zeros with the new fields.
    {"BX_SaveEData",
     "SavesARecordWithATable",
     SavePlaybackPrefs,
     {"1: 13 saved over zeros 39 saved 36 saved 37 saved", "1: 13 as it was 39 saved 36 saved 37 saved",
      "1: 13 saved 39 saved over zeros 36 saved 37 saved", "1: 13 saved 39 as it was 36 saved 37 saved",
      "1: 13 saved 39 saved 36 saved over zeros 37 saved", "1: 13 saved 39 saved 36 as it was 37 saved",
      "1: 13 saved 39 saved 36 saved 37 saved over zeros", "1: 13 saved 39 saved 36 saved 37 as it was",
      "1: 13 saved 39 saved 36 saved 37 saved"},
     Times(2, "1: 13 as it was 39 as it was 36 as it was 37 as it was") +
         Times(2, "1: 13 saved 39 as it was 36 as it was 37 as it was") +
         Times(2, "1: 13 saved 39 saved 36 as it was 37 as it was") +
         Times(2, "1: 13 saved 39 saved 36 saved 37 as it was") + Texts{"1: 13 saved 39 saved 36 saved 37 saved"}},
    {"BX_SaveEData",
     "SavesARow",
     SaveRowOfThree,
     {"1: 94 as it was 95 saved 96 saved", "1: 94 saved 95 as it was 96 saved", "1: 94 saved 95 saved 96 as it was",
      "1: 94 saved 95 saved 96 saved"},
     {"1: 94 as it was 95 as it was 96 as it was", "1: 94 saved 95 as it was 96 as it was",
      "1: 94 saved 95 saved 96 as it was", "1: 94 saved 95 saved 96 saved"}},

    // A display that does not open is tried again.
    {"BXUtilPRUpdate", "ReportsProgress", ReportProgress,
     Texts{"1 1 none,shown, 20 80 ended 0"} + Times(5, "1 1 shown, 10 10 80 ended 0"),
     Texts{"1 1 none,none,"} + Times(5, "1 1 shown, 10 10 80 ended 0")},
    {"BXUtilPREnd", "EndsACancelledReport", ReportProgressUntilCancelled,
     Texts{"1 1 none,shown, 20 ended 1"} + Times(4, "1 1 shown, 10 10 ended 1"),
     Texts{"1 1 none,none,"} + Times(4, "1 1 shown, 10 10 ended 1")},
    // A frame that cannot be loaded counts as empty.
    {"BXUtilIsEmptyMeasure",
     "LooksThroughTwoLayers",
     AskForAnEmptyMeasure,
     {"empty", "not empty", "empty", "not empty"},
     {"empty", "empty", "empty", "not empty"}},
    {"BXUtilGetStaffName", "FallsBackToTheSecondName", NameAStaffOfTwoNames,
     Texts{"0: "} + Times(3, "3: Fl.") + Texts{"5: Flute"}, Times(4, "0: ") + Texts{"5: Flute"}},
    {"BXUtilLoadRawTextUTF16", "LoadsAText", LoadRawText, {"null", "null", "text"}, {"null", "null", "text"}},
    {"BXUtilCountIUSlots",
     "CountsToTheFirstThatIsMissing",
     CountThreeSlots,
     {"0", "1", "2", "3", "3"},
     {"0", "1", "2", "3", "3"}},

    {"NewFF_DialogHandlerProc",
     "MakesAHandler",
     MakeADialogHandler,
     {"unchanged, alert", "unchanged"},
     {"unchanged, alert", "unchanged"}},
    {"DisposeFF_DialogHandlerProc",
     "DisposesOfAHandler",
     DisposeOfADialogHandler,
     {"nothing, alert", "nothing"},
     {"nothing, alert", "nothing"}},
    {"BrevixExtensionEnumerate_UTF16", "GivesTheKeysOfMissingTexts", ListAnItemWithoutTexts,
     Times(4, "1: 20000,1 20000,2 20000,3 0"), Times(4, "1: 20000,1 20000,2 20000,3 0")},
    // The call that fails asks for the layers of the progress (1) and of the walk (2), and whether the layer is shown
    // (3); it loads (4), saves (5) and frees (6) the first frame, and shows its progress (7, 8); then all that once
    // more for the second (9 to 12), and the end (13).
    //
    // What the host answers to a save is not looked at: the result is that a frame was changed.
    {"BrevixExtensionInvoke", "HidesInTwoMeasures", HideTwoMeasures,
     Texts{"1: hh hh, display ended"} + Times(2, "0: sh ss, reports no change") + Times(2, "1: sh hh, display ended") +
         Times(3, "1: hh hh, display ended") + Times(2, "1: hh ss, display ended") +
         Times(4, "1: hh hh, display ended"),
     Times(4, "0: sh ss, reports no change") + Texts{"1: sh ss"} + Times(2, "1: hh ss") +
         Times(3, "1: hh ss, display ended") + Times(4, "1: hh hh, display ended")},
    {"BrevixExtensionInvoke", "ShowsInTwoMeasures", ShowTwoMeasures,
     Texts{"1: ss ss, display ended"} + Times(2, "0: hs hh, reports no change") + Times(2, "1: hs ss, display ended") +
         Times(3, "1: ss ss, display ended") + Times(2, "1: ss hh, display ended") +
         Times(4, "1: ss ss, display ended"),
     Times(4, "0: hs hh, reports no change") + Texts{"1: hs hh"} + Times(2, "1: ss hh") +
         Times(3, "1: ss hh, display ended") + Times(4, "1: ss ss, display ended")},
    // The second layer starts at the ninth call.
    {"BrevixExtensionInvoke", "HidesInTwoLayers", HideInTwoLayers,
     Texts{"1: hh hh, display ended", "0: ss ss, reports no change"} + Times(3, "1: ss hh, display ended") +
         Times(3, "1: hh hh, display ended") + Times(3, "1: hh ss, display ended") +
         Times(4, "1: hh hh, display ended"),
     Times(4, "0: ss ss, reports no change") + Texts{"1: ss ss"} + Times(2, "1: hh ss") +
         Times(4, "1: hh ss, display ended") + Times(4, "1: hh hh, display ended")},
    // The first call is the question.
    {"BrevixExtensionInvoke", "HidesWhereNothingIsSelected", HideWhereNothingIsSelected,
     Texts{"0: s, asks", "1: h, asks, display ended"} + Times(3, "0: s, asks, reports no change") +
         Texts{"1: s, asks, display ended", "1: h, asks, display ended", "1: h, asks"} +
         Times(3, "1: h, asks, display ended"),
     Texts{"0: s, asks"} + Times(4, "0: s, asks, reports no change") + Texts{"1: s, asks"} + Times(2, "1: h, asks") +
         Times(3, "1: h, asks, display ended")},
    // The first frame that loads is the last.
    {"BrevixExtensionInvoke", "HidesWithTheCancelKeysHeld", HideWithTheCancelKeysHeld,
     Texts{"1: h s s"} + Times(2, "0: s s s, reports no change") + Texts{"1: s h s", "1: s s s"} + Times(2, "1: h s s"),
     Times(4, "0: s s s, reports no change") + Texts{"1: s s s"} + Times(2, "1: h s s")},
    // Nobody cancels if the second frame (9) does not load.
    {"BrevixExtensionInvoke", "ShowsUntilItIsCancelled", ShowUntilCancelledInTheSecondMeasure,
     Texts{"1: s s h, display cancelled"} + Times(2, "0: h h h, reports no change") +
         Texts{"1: h s h", "1: h s h, display cancelled", "1: s s h, display cancelled", "1: s s h",
               "1: s s h, display cancelled", "1: s h s, display ended", "1: s h h, display cancelled"} +
         Times(3, "1: s s h, display cancelled"),
     Times(4, "0: h h h, reports no change") + Texts{"1: h h h"} + Times(2, "1: s h h") +
         Times(2, "1: s h h, display ended") + Texts{"1: s h h, display cancelled"} +
         Times(3, "1: s s h, display cancelled")},
};

// Frames and progress displays of the host: what was opened is closed once, before the next is opened, and used only
// meanwhile.
class OpenOne {
 public:
  void Open(const HostCall& call) {
    if (call.result == 0) return;
    EXPECT_EQ(open_, 0u) << call.name << " before the last one was given back";
    open_ = call.result;
  }
  void Use(const HostCall& call) const {
    EXPECT_NE(call.arguments[0], 0u) << call.Text();
    EXPECT_EQ(call.arguments[0], open_) << call.Text() << " of what is not open";
  }
  void Close(const HostCall& call) {
    Use(call);
    open_ = 0;
  }
  bool IsClosed() const { return open_ == 0; }

 private:
  std::uint64_t open_ = 0;
};

void ExpectFramesAreFreedOnce(const std::vector<HostCall>& calls) {
  OpenOne frame;
  for (const HostCall& call : calls) {
    if (call.name == "BX_LoadTGF") frame.Open(call);
    if (call.name == "BX_SaveTGF") frame.Use(call);
    if (call.name == "BX_FreeTGF") frame.Close(call);
  }
  EXPECT_TRUE(frame.IsClosed());
}

void ExpectDisplaysAreEndedOnce(const std::vector<HostCall>& calls) {
  OpenOne display;
  for (const HostCall& call : calls) {
    if (call.name == "BX_StartMassEdit") display.Open(call);
    if (call.name == "BX_MassEditProgress") display.Use(call);
    if (call.name == "BX_EndMassEdit") display.Close(call);
  }
  EXPECT_TRUE(display.IsClosed());
}

int Balance(const std::vector<HostCall>& calls, const std::set<std::string>& up, const std::set<std::string>& down) {
  int balance = 0;
  for (const HostCall& call : calls) balance += (up.contains(call.name) ? 1 : 0) - (down.contains(call.name) ? 1 : 0);
  return balance;
}

// The kit's counters, which go by the calls and not by what they return.
struct Counters {
  int frames = LoadedTGFCounter;
  int displays = MassEditDepth;
  int edits = BrevixEditDepth;
};

void ExpectCountersFollow(const std::vector<HostCall>& calls, const Counters& before) {
  EXPECT_EQ(LoadedTGFCounter - before.frames, Balance(calls, {"BX_LoadTGF"}, {"BX_FreeTGF"}));
  EXPECT_EQ(MassEditDepth - before.displays, Balance(calls, {"BX_StartMassEdit"}, {"BX_EndMassEdit"}));
  EXPECT_EQ(BrevixEditDepth, before.edits);
  EXPECT_EQ(
      Balance(calls, {"BX_StartBrevixEdit", "BX_StartBrevixEdit_UTF16"}, {"BX_EndBrevixEdit", "BX_CancelBrevixEdit"}),
      0);
}

// Frees no frame: hosts share the frames of a measure between callers.
bool KeepsFrames(const Job& job) { return std::string(job.function) == "BXUtilIsEmptyMeasure"; }

void ExpectAllIsGivenBack(const Job& job, const std::vector<HostCall>& calls, const Counters& before) {
  if (KeepsFrames(job)) {
    EXPECT_EQ(Balance(calls, {"BX_FreeTGF"}, {}), 0);
  } else {
    ExpectFramesAreFreedOnce(calls);
  }
  ExpectDisplaysAreEndedOnce(calls);
  ExpectCountersFollow(calls, before);
}

class FailingCall : public testing::TestWithParam<Job> {
 protected:
  static constexpr std::size_t kMostCalls = 100;

  static Texts OutcomesOf(const Job& job, bool andAllAfter) {
    Texts outcomes;
    for (std::size_t first = 1; first < kMostCalls; ++first) {
      SCOPED_TRACE("call " + std::to_string(first) + (andAllAfter ? " and all after it" : ""));
      const Counters before;
      const Outcome outcome = job.run({first, andAllAfter});
      ExpectAllIsGivenBack(job, outcome.calls, before);
      outcomes.push_back(outcome.text);
      if (outcome.calls.size() < first) break;
    }
    return outcomes;
  }
};

TEST_P(FailingCall, Alone) {
  EXPECT_THAT(OutcomesOf(GetParam(), false), testing::ElementsAreArray(GetParam().whenOneFails));
}

TEST_P(FailingCall, AndAllAfterIt) {
  EXPECT_THAT(OutcomesOf(GetParam(), true), testing::ElementsAreArray(GetParam().whenAllAfterFailToo));
}

INSTANTIATE_TEST_SUITE_P(Of, FailingCall, testing::ValuesIn(kJobs), testing::PrintToStringParamName());

}  // namespace
