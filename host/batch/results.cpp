#include "host/batch/results.h"

#include <fmt/format.h>

#include <chrono>
#include <cstddef>
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
  const std::string counts =
      fmt::format("{}: {} of {} entries", InputName(job.score), done.changedEntries, done.Entries());
  if (!job.target) return counts + " would change";
  return counts + " changed, " + (done.filesWritten > 0 ? "written to " + OutputName(*job.target) : "nothing written");
}

// Layers count from 1 here, as on the command line.
std::string LineOf(const std::string& place, const EntryChange& change, const char* becomes) {
  return fmt::format("{}:{}: staff {}, measure {}, layer {}, position {}: {}{}\n", place, change.line, +change.staff,
                     +change.measure, change.layer + 1, TextOf({change.position, kTicksPerQuarter}), becomes,
                     change.isHidden != 0 ? "hidden" : "shown");
}

Outcome OutcomeOf(const Job& job, const DoneMessage& done) {
  if (done.filesWritten > 0) return Outcome::kWritten;
  return !job.target && done.changedEntries > 0 ? Outcome::kWouldChange : Outcome::kUnchanged;
}

}  // namespace

Results::Results(const std::vector<Job>& jobs, const JobSettings& settings, Terminal& terminal)
    : jobs_(jobs), settings_(settings), terminal_(terminal), isReported_(jobs.size()) {
  if (settings.printsJson) jsonLines_.emplace(terminal, settings.listsChanges);
}

void Results::ReportDone(const Job& job, const Findings& findings, const DoneMessage& done) {
  ++(done.changedEntries > 0 ? changed_ : unchanged_);
  if (IsOfOneJob() || IsDryRun() || settings_.namesEachScore) terminal_.PrintLine(LineOf(job, done));
  Report(job, findings, {OutcomeOf(job, done), false, done, ""});
}

void Results::ReportBadInput(const Job& job, const Findings& findings, const std::string& text) {
  ++badInput_;
  terminal_.PrintError(text);
  Report(job, findings, {Outcome::kBadInput, false, {}, text});
}

void Results::ReportFailure(const Job& job, const Findings& findings, const std::string& text, bool retry) {
  ++failed_;
  terminal_.PrintError(text);
  Report(job, findings, {Outcome::kFailed, retry, {}, text});
}

void Results::ReportInterrupted(const Job& job, const Findings& findings) {
  ++interrupted_;
  if (settings_.namesEachScore) terminal_.PrintLine(InputName(job.score) + ": interrupted");
  Report(job, findings, {Outcome::kInterrupted, true, {}, ""});
}

void Results::ReportNotRun(const Job& job) {
  if (settings_.namesEachScore) terminal_.PrintLine(InputName(job.score) + ": not run");
  if (jsonLines_) jsonLines_->End(job, {}, {Outcome::kNotRun, true, {}, ""});
}

void Results::Report(const Job& job, const Findings& findings, const ScoreResult& result) {
  isReported_[static_cast<std::size_t>(&job - jobs_.data())] = true;
  if (jsonLines_) jsonLines_->End(job, findings, result);
  ShowBar();
}

void Results::List(const Job& job, const Findings& findings) {
  if (jsonLines_) return jsonLines_->List(job, findings);
  const std::string place = Printable(InputName(job.score) + (findings.member.empty() ? "" : ": " + findings.member));
  const char* const becomes = IsDryRun() ? "would be " : "";
  std::string lines;
  for (const EntryChange& change : ChangesFrom(findings.changes)) lines += LineOf(place, change, becomes);
  terminal_.PrintLines(lines);
}

void Results::Finish() {
  for (std::size_t job = 0; job < jobs_.size(); ++job) {
    if (!isReported_[job]) ReportNotRun(jobs_[job]);
  }
  terminal_.ClearBar();
  if (!IsOfOneJob()) PrintSummary();
}

void Results::PrintSummary() {
  std::string line = fmt::format("{} scores: {} {}, {} unchanged, {} failed", jobs_.size(), changed_,
                                 IsDryRun() ? "would change" : "changed", unchanged_, badInput_ + failed_);
  if (interrupted_ > 0) line += fmt::format(", {} interrupted", interrupted_);
  if (NotRun() > 0) line += fmt::format(", {} not run", NotRun());
  terminal_.PrintLine(line);
}

int Results::Status() const {
  if (InterruptCount() > 0) return kInterrupted;
  if (badInput_ > 0) return kBadInput;
  return failed_ > 0 || NotRun() > 0 ? kFailed : kDone;
}

std::string Results::Prefixed(const Job& job, const std::string& text) const {
  return IsOfOneJob() ? text : InputName(job.score) + ": " + text;
}

int Results::NotRun() const { return static_cast<int>(std::ssize(jobs_)) - Finished(); }

void Results::ShowBar() {
  if (IsOfOneJob()) return;
  std::string remark;
  if (const int failed = badInput_ + failed_; failed > 0) remark = fmt::format(", {} failed", failed);
  const auto elapsed = std::chrono::steady_clock::now() - start_;
  const int total = static_cast<int>(jobs_.size());
  const std::string left =
      timeLeft_.After(std::chrono::duration_cast<std::chrono::milliseconds>(elapsed), Finished(), total);
  if (!left.empty()) remark += ", " + left;
  terminal_.SetBar(Finished(), total, remark);
}

}  // namespace brvhost
