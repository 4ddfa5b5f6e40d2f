#include "host/batch/jsonlines.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "host/score/changes.h"

namespace brvhost {
namespace {

const Job kFirst{"a.musicxml", "out/a.musicxml"};
const Job kSecond{"b.musicxml", std::nullopt};

Findings Changed(std::uint64_t line) {
  Findings findings;
  findings.changes = BytesOf(std::vector<EntryChange>{{line, 5040, 1, 2, 3, 1}});
  return findings;
}

// What is printed meanwhile.
std::string Printed(const std::function<void(JsonLines&)>& work, bool listsChanges = true) {
  testing::internal::CaptureStdout();
  {
    Terminal terminal;
    JsonLines lines(terminal, listsChanges);
    work(lines);
  }
  return testing::internal::GetCapturedStdout();
}

const ScoreResult kNotRun{Outcome::kNotRun, true, {}, ""};
const std::string kNotRunsEnd =
    R"("status":"notRun","retry":true,"counts":null,"region":null,"warnings":[],"missingFunctions":[],"error":null})"
    "\n";
const std::string kSecondsLine = R"({"score":"b.musicxml","member":null,"target":null,"changes":[],)" + kNotRunsEnd;

TEST(JsonLines, HaveTheCountsOfAResult) {
  Findings findings;
  findings.member = "x.xml";
  findings.region = "[1]";
  findings.warnings = {"b.musicxml: warning: odd"};
  findings.missingFunctions = {"BX_Dialog"};
  const std::string printed = Printed(
      [&findings](JsonLines& lines) {
        lines.End(kFirst, findings, {Outcome::kWritten, false, DoneMessage{1, 2, 3, 4, 5, 1}, ""});
      },
      false);
  EXPECT_EQ(printed,
            R"({"score":"a.musicxml","member":"x.xml","target":"out/a.musicxml","status":"written","retry":false,)"
            R"("counts":{"entries":9,"notes":2,"chords":3,"rests":4,"changed":1,"hidden":5},"region":[1],)"
            R"("warnings":["b.musicxml: warning: odd"],"missingFunctions":["BX_Dialog"],"error":null})"
            "\n");
}

TEST(JsonLines, HaveAnEmptyListWhereNothingChanged) {
  EXPECT_EQ(Printed([](JsonLines& lines) { lines.End(kSecond, {}, kNotRun); }), kSecondsLine);
}

TEST(JsonLines, TakeTheChangesPieceByPieceAndHoldOtherLinesBackMeanwhile) {
  const std::string printed = Printed([](JsonLines& lines) {
    lines.List(kFirst, Changed(7));
    lines.End(kSecond, {}, kNotRun);
    lines.List(kFirst, Changed(8));
    lines.End(kFirst, {}, kNotRun);
    lines.End(kSecond, {}, kNotRun);
  });
  EXPECT_EQ(printed, R"({"score":"a.musicxml","member":null,"target":"out/a.musicxml","changes":[)"
                     R"({"line":7,"staff":1,"measure":2,"layer":4,"position":"1/2","hidden":true},)"
                     R"({"line":8,"staff":1,"measure":2,"layer":4,"position":"1/2","hidden":true}],)" +
                         kNotRunsEnd + kSecondsLine + kSecondsLine);
}

}  // namespace
}  // namespace brvhost
