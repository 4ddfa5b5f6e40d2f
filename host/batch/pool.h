// Runs jobs side by side, each in a process of its own: a crash of the extension costs one score, and no job sees what
// the extension left behind in another.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/batch/channel.h"
#include "host/batch/job.h"
#include "host/batch/message.h"
#include "host/bundle/extension.h"
#include "host/process/terminal.h"

namespace brvhost {

class Pool {
 public:
  Pool(const Extension& extension, const JobSettings& settings, Terminal& terminal);

  // Runs all jobs, at most `parallel` at a time, and returns the exit status of the whole.
  [[nodiscard]] int Run(const std::vector<Job>& jobs, int parallel);

 private:
  struct Running {
    const Job* job = nullptr;
    int process = 0;
    Channel channel;
    bool reported = false;  // its last message has come
  };
  struct Counts {
    int changed = 0;
    int unchanged = 0;
    int badInput = 0;
    int failed = 0;
    int Finished() const { return changed + unchanged + badInput + failed; }
  };

  // False when the system allows no more processes at the same time.
  bool TryToStart(const Job& job);
  void Start(const Job& job);
  void WaitForMessages();
  void Receive(Running& running);
  void Handle(Running& running, const AlertMessage& message);
  void Handle(Running& running, const QuestionMessage& message);
  void Handle(Running& running, const WarningMessage& message);
  void Handle(Running& running, const ProgressMessage& message);
  void Handle(Running& running, const ProgressEndMessage& message);
  void Handle(Running& running, const BadInputMessage& message);
  void Handle(Running& running, const FailureMessage& message);
  void Handle(Running& running, const DoneMessage& message);
  // Shows how many jobs are finished, this one included.
  void Report(Running& running);
  void Finish(Running& running);
  void PassInterruptsOn();
  void PrintSummary();
  int Status() const;
  // Names the score where there are several.
  std::string Prefixed(const Job& job, const std::string& text) const;

  const Extension& extension_;
  const JobSettings& settings_;
  Terminal& terminal_;
  std::vector<Running> running_;
  Counts counts_;
  std::size_t total_ = 0;
  int interruptsPassedOn_ = 0;
};

}  // namespace brvhost
