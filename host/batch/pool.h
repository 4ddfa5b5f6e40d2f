// Runs jobs side by side. This process supervises: it has the terminal, and runs no code of the extension; see
// message.h for the others.
#pragma once

#include <poll.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/batch/channel.h"
#include "host/batch/extensionprocess.h"
#include "host/batch/job.h"
#include "host/batch/keeperprocess.h"
#include "host/batch/message.h"
#include "host/batch/results.h"
#include "host/process/terminal.h"

namespace brvhost {

class Pool {
 public:
  // Does the jobs, at most `parallel` at a time. All of them outlive the pool.
  Pool(const std::vector<Job>& jobs, const JobSettings& settings, ExtensionProcess& extension, Terminal& terminal,
       std::size_t parallel);
  // Kills what is left.
  ~Pool();
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;

  // Gives the slots that are free their next jobs. Before Run, scores are read while the extension is loaded.
  void StartJobs();
  // Does all jobs, and returns the exit status of the whole. The extension has been loaded.
  [[nodiscard]] int Run();
  // Instead of Run, after an interrupt: reports that nothing was run.
  void GiveUp() { results_.Finish(); }

 private:
  // How many slots have work.
  std::size_t Busy() const;
  void Start(std::size_t slot);
  void StartKeeper(std::size_t slot);
  void StartWorker(std::size_t slot);
  // Waits for messages, and handles them.
  void Wait();
  void Hear(const std::vector<pollfd>& waiting);
  void HearKeeper(std::size_t slot);
  void HearExtension();
  void TakeEndsOfWorkers();
  void LoseExtension(bool hasMemory);
  void LookAtTime();
  void PassInterruptsOn();
  void KillKeeper(std::size_t slot);

  template <class Other>
  void Handle(std::size_t, const Other&) {}
  void Handle(std::size_t slot, const AlertMessage& message);
  void Handle(std::size_t slot, const QuestionMessage& message);
  void Handle(std::size_t slot, const HandedOutMessage& message);
  void Handle(std::size_t slot, const HandedBackMessage& message);
  void Handle(std::size_t slot, const WarningMessage& message);
  void Handle(std::size_t slot, const ProgressMessage& message);
  void Handle(std::size_t slot, const ProgressEndMessage& message);
  void Handle(std::size_t slot, const BadInputMessage& message);
  void Handle(std::size_t slot, const FailureMessage& message);
  void Handle(std::size_t slot, const PassingFailureMessage& message);
  void Handle(std::size_t slot, const MemberMessage& message);
  void Handle(std::size_t slot, const RegionMessage& message);
  void Handle(std::size_t slot, const ChangesMessage& message);
  void Handle(std::size_t slot, const DoneMessage& message);
  void Handle(std::size_t slot, const LostMessage& message);
  void Handle(std::size_t slot, const NoMemoryMessage& message);

  // Lists what has changed in one score at a time; the keepers of others wait.
  void ListChanges();
  // Ends the work of a worker that may still wait, or go on.
  void Refuse(std::size_t slot);
  // The work has gone without a result, for a reason that is known.
  void FinishLost(std::size_t slot);
  void Fail(std::size_t slot, const std::string& reason, bool retry);
  void Interrupt(std::size_t slot);
  // Frees the slot.
  void Finish(std::size_t slot);
  std::string WhyLost(std::size_t slot) const;
  // Whether it may come out otherwise the next time.
  bool IsLossPassing(const Work& work) const;

  // What the extension has asked for so far that brvhost does not have.
  void NoteMissingFunctions(std::size_t slot);
  void ReportMissingFunctions();
  void ShowOutput(std::size_t slot);
  void ShowLine(std::size_t slot, std::string_view line);
  const Job& JobOf(std::size_t slot) const { return jobs_[slots_[slot].work->job]; }
  Findings& FindingsOf(std::size_t slot) { return slots_[slot].work->findings; }

  const std::vector<Job>& jobs_;
  const JobSettings& settings_;
  ExtensionProcess& extension_;
  Terminal& terminal_;
  std::vector<KeeperProcess> slots_;
  std::size_t parallel_;               // slots that may have work
  std::deque<std::size_t> waiting_;    // jobs that are not started yet
  std::optional<std::size_t> listed_;  // the slot with the score that is listed
  bool isLoaded_ = false;
  Results results_;
  std::set<std::string> missingFunctions_;
  int interruptsPassedOn_ = 0;
};

}  // namespace brvhost
