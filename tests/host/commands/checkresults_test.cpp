// What is reported of a check: the lines, the counts, and the report for build servers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "host/check/facts.h"
#include "host/check/results.h"
#include "host/commands/checkjson.h"
#include "host/commands/checkjunit.h"
#include "host/commands/checklines.h"

namespace brvhost {
namespace {

using std::chrono::milliseconds;

Fact FactNamed(const char* name, Severity severity, FactKind kind = FactKind::kBehaviour) {
  return {name, std::string("is & ") + name, severity, kind, nullptr};
}

// One of each outcome, of a bundle whose name is markup.
struct Results {
  const Fact error = FactNamed("bad", Severity::kError);
  const Fact warning = FactNamed("odd", Severity::kWarning);
  const Fact note = FactNamed("known", Severity::kNote);
  const BundleResults all{"/a/B&C.bundle",
                          {{&error, Outcome::kHolds, "", "", milliseconds(7)},
                           {&error, Outcome::kError, "a < b", "run <this>", milliseconds(12045)},
                           {&warning, Outcome::kWarning, "a > b", "", milliseconds(100)},
                           {&note, Outcome::kNote, "\"a\"", "", milliseconds(1000)},
                           {&error, Outcome::kSkipped, "needs start", "", milliseconds(0)}}};
};

TEST(JUnit, HasEachOutcomeWithItsTime) {
  EXPECT_EQ(JUnitOf({Results().all}, false), R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites name="brvhost check" tests="5" failures="1">
  <testsuite name="/a/B&amp;C.bundle" tests="5" failures="1" errors="0" skipped="1" time="13.152">
    <testcase classname="B&amp;C" name="bad" time="0.007"/>
    <testcase classname="B&amp;C" name="bad" time="12.045"><failure type="error" message="a &lt; b">is &amp; bad: a &lt; b; in a debugger: run &lt;this&gt;</failure></testcase>
    <testcase classname="B&amp;C" name="odd" time="0.100"><system-out>warning: a &gt; b</system-out></testcase>
    <testcase classname="B&amp;C" name="known" time="1.000"><system-out>note: &quot;a&quot;</system-out></testcase>
    <testcase classname="B&amp;C" name="bad" time="0.000"><skipped message="needs start"/></testcase>
  </testsuite>
</testsuites>
)");
}

TEST(JUnit, HasWarningsForFailuresWhereTheyCount) {
  const std::string xml = JUnitOf({Results().all, Results().all}, true);
  EXPECT_THAT(xml, testing::HasSubstr("tests=\"10\" failures=\"4\">\n"));
  EXPECT_THAT(xml, testing::HasSubstr("tests=\"5\" failures=\"2\" errors=\"0\" skipped=\"1\""));
  EXPECT_THAT(xml, testing::HasSubstr("name=\"odd\" time=\"0.100\"><failure type=\"warning\" message=\"a &gt; b\">"
                                      "is &amp; odd: a &gt; b</failure></testcase>"));
  EXPECT_THAT(xml, testing::HasSubstr("<system-out>note: "));
}

TEST(CheckLines, HaveAWordForEachOutcome) {
  std::string lines;
  const Results results;
  for (const FactResult& result : results.all.facts) lines += LinesOf(result);
  EXPECT_EQ(lines,
            "ok      is & bad [bad]\n"
            "FAILED  is & bad: a < b [bad]\n"
            "        in a debugger: run <this>\n"
            "warning is & odd: a > b [odd]\n"
            "note    is & known: \"a\" [known]\n");
}

TEST(CheckLines, AnnounceWhatIsSkipped) {
  const Fact fact = FactNamed("start", Severity::kError, FactKind::kStart);
  EXPECT_EQ(LinesOf({&fact, Outcome::kError, "no", "", {}}),
            "FAILED  is & start: no [start]\n        the facts that need this one are skipped\n");
  EXPECT_EQ(LinesOf({&fact, Outcome::kHolds, "", "", {}}), "ok      is & start [start]\n");
}

TEST(CheckLines, EndWithASummary) {
  EXPECT_EQ(SummaryOf({Results().all}), "5 facts: 1 holds, 1 error, 1 warning, 1 note, 1 skipped\n");
  EXPECT_EQ(SummaryOf({Results().all, Results().all}),
            "10 facts of 2 bundles: 2 hold, 2 errors, 2 warnings, 2 notes, 2 skipped\n");
  const Fact fact = FactNamed("good", Severity::kError);
  EXPECT_EQ(SummaryOf({{"a", {{&fact, Outcome::kHolds, "", "", {}}}}}), "1 fact: 1 holds, 0 errors, 0 warnings\n");
}

TEST(CheckJson, CountsEachOutcome) {
  EXPECT_EQ(
      JsonOf(Results().all, false),
      R"({"bundle":"/a/B&C.bundle","status":"failed","facts":5,"holding":1,"errors":1,"warnings":1,"notes":1,"skipped":1})");
}

TEST(OutcomeCounts, FailWithErrorsAndWhereTheyCountWithWarnings) {
  OutcomeCounts counts;
  counts.notes = counts.skipped = 1;
  EXPECT_FALSE(Fails(counts, false));
  EXPECT_FALSE(Fails(counts, true));
  counts.warnings = 1;
  EXPECT_FALSE(Fails(counts, false));
  EXPECT_TRUE(Fails(counts, true));
  counts.errors = 1;
  EXPECT_TRUE(Fails(counts, false));
}

}  // namespace
}  // namespace brvhost
