#include "host/batch/results.h"

#include <fmt/format.h>

#include <iterator>

#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/score/changes.h"
#include "host/score/fraction.h"
#include "host/score/score.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

std::string LineOf(const Job& job, const DoneMessage& done) {
  const std::string counts = fmt::format("{}: {} of {} entries", job.score, done.changedEntries, done.entries);
  if (!job.target) return counts + " would change";
  return counts + " changed, " + (done.filesWritten > 0 ? "written to " + *job.target : "nothing written");
}

// Layers count from 1 here, as on the command line.
std::string LineOf(const std::string& place, const EntryChange& change, const char* becomes) {
  return fmt::format("{}:{}: staff {}, measure {}, layer {}, position {}: {}{}\n", place, change.line, +change.staff,
                     +change.measure, change.layer + 1, TextOf({change.position, kTicksPerQuarter}), becomes,
                     change.isHidden != 0 ? "hidden" : "shown");
}

}  // namespace

void Results::ReportDone(const Job& job, const DoneMessage& message) {
  ++(message.changedEntries > 0 ? changed_ : unchanged_);
  if (IsOfOneJob() || IsDryRun()) terminal_.PrintLine(LineOf(job, message));
  ShowBar();
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

void Results::List(const Job& job, const Findings& findings) {
  const std::string place = Printable(findings.member.empty() ? job.score : job.score + ": " + findings.member);
  const char* const becomes = IsDryRun() ? "would be " : "";
  std::string lines;
  for (const EntryChange& change : ChangesFrom(findings.changes)) lines += LineOf(place, change, becomes);
  terminal_.PrintLines(lines);
}

void Results::PrintSummary() {
  terminal_.ClearBar();
  if (IsOfOneJob()) return;
  std::string line = fmt::format("{} scores: {} {}, {} unchanged, {} failed", jobs_.size(), changed_,
                                 IsDryRun() ? "would change" : "changed", unchanged_, badInput_ + failed_);
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
