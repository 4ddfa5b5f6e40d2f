#include "host/batch/results.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "host/process/exitstatus.h"

namespace brvhost {
namespace {

const DoneMessage kUnchanged{0, 4, 0, 0, 4, 0};
const DoneMessage kWritten{3, 4, 0, 0, 4, 1};
const DoneMessage kFound{3, 4, 0, 0, 4, 0};

const std::vector<Job> kThree = {{"a", "A"}, {"b", "B"}, {"c", "C"}};

struct Reported {
  std::string output;
  int status = 0;
};

Reported Report(const std::vector<Job>& jobs, const JobSettings& settings, const std::function<void(Results&)>& work) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Terminal terminal;
  Results results(jobs, settings, terminal);
  work(results);
  results.Finish();
  testing::internal::GetCapturedStderr();
  return {testing::internal::GetCapturedStdout(), results.Status()};
}

TEST(Results, CountTheScoresOfABatch) {
  const Reported reported = Report(kThree, {}, [](Results& results) {
    results.ReportDone(kThree[1], {}, kWritten);
    results.ReportDone(kThree[0], {}, kUnchanged);
    results.ReportFailure(kThree[2], {}, "c: gone", true);
  });
  EXPECT_EQ(reported.output, "3 scores: 1 changed, 1 unchanged, 1 failed\n");
  EXPECT_EQ(reported.status, kFailed);
}

TEST(Results, TakeAScoreThatCannotBeUsedForTheWorse) {
  const Reported reported = Report(kThree, {}, [](Results& results) {
    results.ReportBadInput(kThree[0], {}, "a: is empty");
    results.ReportFailure(kThree[1], {}, "b: gone", false);
    results.ReportDone(kThree[2], {}, kWritten);
  });
  EXPECT_EQ(reported.output, "3 scores: 1 changed, 0 unchanged, 2 failed\n");
  EXPECT_EQ(reported.status, kBadInput);
}

TEST(Results, NameTheScoresThatWereNotRunWhereEachIsNamed) {
  JobSettings settings;
  settings.namesEachScore = true;
  const Reported reported = Report(kThree, settings, [](Results& results) {
    results.ReportDone(kThree[1], {}, kWritten);
    results.ReportInterrupted(kThree[0], {});
  });
  EXPECT_EQ(reported.output,
            "b: 3 of 4 entries changed, written to B\na: interrupted\nc: not run\n"
            "3 scores: 1 changed, 0 unchanged, 0 failed, 1 interrupted, 1 not run\n");
  EXPECT_EQ(reported.status, kFailed);
}

TEST(Results, OfADryRunAreWhatWouldChange) {
  const std::vector<Job> jobs = {{"a", std::nullopt}, {"b", std::nullopt}};
  const Reported reported = Report(jobs, {}, [&jobs](Results& results) {
    results.ReportDone(jobs[0], {}, kFound);
    results.ReportDone(jobs[1], {}, kUnchanged);
  });
  EXPECT_EQ(reported.output,
            "a: 3 of 4 entries would change\nb: 0 of 4 entries would change\n2 scores: 1 would change, 1 unchanged, 0 "
            "failed\n");
  EXPECT_EQ(reported.status, kDone);
}

TEST(Results, OfOneScoreHaveNoSummary) {
  const std::vector<Job> jobs = {{"a", "A"}};
  const Reported reported =
      Report(jobs, {}, [&jobs](Results& results) { results.ReportDone(jobs[0], {}, kUnchanged); });
  EXPECT_EQ(reported.output, "a: 0 of 4 entries changed, nothing written\n");
  EXPECT_EQ(reported.status, kDone);
}

}  // namespace
}  // namespace brvhost
