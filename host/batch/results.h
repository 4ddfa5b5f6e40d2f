// How the jobs of a run came out, as the user sees it.
#pragma once

#include <string>
#include <vector>

#include "host/batch/findings.h"
#include "host/batch/job.h"
#include "host/batch/message.h"
#include "host/process/terminal.h"

namespace brvhost {

// Each job that is run is reported once, by one of the first three functions; a bar counts them where there are
// several.
class Results {
 public:
  // Both outlive this object.
  Results(const std::vector<Job>& jobs, Terminal& terminal) : jobs_(jobs), terminal_(terminal) {}

  void ReportDone(const Job& job, const DoneMessage& message);
  void ReportBadInput(const std::string& text);
  void ReportFailure(const std::string& text);

  // Prints some of the changes in a score that is not reported yet.
  void List(const Job& job, const Findings& findings);

  // How many came out in which way, where there are several.
  void PrintSummary();
  // The exit status of the whole.
  int Status() const;

  bool IsOfOneJob() const { return jobs_.size() == 1; }
  // Names the score where there are several.
  std::string Prefixed(const Job& job, const std::string& text) const;

 private:
  int Finished() const { return changed_ + unchanged_ + badInput_ + failed_; }
  int NotRun() const;
  bool IsDryRun() const { return !jobs_.front().target; }
  void ShowBar();

  const std::vector<Job>& jobs_;
  Terminal& terminal_;
  int changed_ = 0;
  int unchanged_ = 0;
  int badInput_ = 0;
  int failed_ = 0;
};

}  // namespace brvhost
