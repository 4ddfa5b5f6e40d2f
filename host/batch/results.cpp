#include "host/batch/results.h"

#include <fmt/format.h>

#include <iterator>

#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"

namespace brvhost {

void Results::ReportDone(const Job& job, const DoneMessage& message) {
  ++(message.changedEntries > 0 ? changed_ : unchanged_);
  if (!IsOfOneJob()) return ShowBar();
  terminal_.PrintLine(
      fmt::format("{}: {} of {} entries changed{}", job.score, message.changedEntries, message.entries,
                  message.filesWritten > 0 ? ", written to " + job.target.value_or("") : ", nothing written"));
}

void Results::ReportBadInput(const std::string& text) {
  ++badInput_;
  terminal_.PrintError(text);
  ShowBar();
}

void Results::ReportFailure(const std::string& text) {
  ++failed_;
  terminal_.PrintError(text);
  ShowBar();
}

void Results::PrintSummary() {
  terminal_.ClearBar();
  if (IsOfOneJob()) return;
  std::string line = fmt::format("{} scores: {} changed, {} unchanged, {} failed", jobs_.size(), changed_, unchanged_,
                                 badInput_ + failed_);
  if (NotRun() > 0) line += fmt::format(", {} not run", NotRun());
  terminal_.PrintLine(line);
}

int Results::Status() const {
  if (InterruptCount() > 0) return kInterrupted;
  if (badInput_ > 0) return kBadInput;
  return failed_ > 0 || NotRun() > 0 ? kFailed : kDone;
}

std::string Results::Prefixed(const Job& job, const std::string& text) const {
  return IsOfOneJob() ? text : job.score + ": " + text;
}

int Results::NotRun() const { return static_cast<int>(std::ssize(jobs_)) - Finished(); }

void Results::ShowBar() {
  if (!IsOfOneJob()) terminal_.SetBar(Finished(), std::ssize(jobs_));
}

}  // namespace brvhost
