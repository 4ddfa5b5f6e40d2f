// How the jobs of a run came out, as the user sees it.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "host/batch/findings.h"
#include "host/batch/job.h"
#include "host/batch/jsonlines.h"
#include "host/batch/message.h"
#include "host/batch/scoreresult.h"
#include "host/batch/timeleft.h"
#include "host/process/terminal.h"

namespace brvhost {

// Each job that is run is reported once; a bar counts them where there are several.
class Results {
 public:
  // All of them outlive this object.
  Results(const std::vector<Job>& jobs, const JobSettings& settings, Terminal& terminal);

  void ReportDone(const Job& job, const Findings& findings, const DoneMessage& done);
  void ReportBadInput(const Job& job, const Findings& findings, const std::string& text);
  // `retry`: whether a repetition may help.
  void ReportFailure(const Job& job, const Findings& findings, const std::string& text, bool retry);
  void ReportInterrupted(const Job& job, const Findings& findings);

  // Prints some of the changes in a score that is not reported yet.
  void List(const Job& job, const Findings& findings);

  // Reports the scores that are not reported yet as not run, and how many came out in which way, where there are
  // several.
  void Finish();
  // The exit status of the whole.
  int Status() const;

  bool IsOfOneJob() const { return jobs_.size() == 1; }
  // Names the score where there are several.
  std::string Prefixed(const Job& job, const std::string& text) const;

 private:
  void ReportNotRun(const Job& job);
  void Report(const Job& job, const Findings& findings, const ScoreResult& result);
  int Finished() const { return changed_ + unchanged_ + badInput_ + failed_ + interrupted_; }
  int NotRun() const;
  bool IsDryRun() const { return !jobs_.front().target; }
  void ShowBar();
  void PrintSummary();

  const std::vector<Job>& jobs_;
  const JobSettings& settings_;
  Terminal& terminal_;
  std::optional<JsonLines> jsonLines_;
  std::vector<bool> isReported_;  // by job
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  TimeLeft timeLeft_;
  int changed_ = 0;
  int unchanged_ = 0;
  int badInput_ = 0;
  int failed_ = 0;
  int interrupted_ = 0;
};

}  // namespace brvhost
