// Runs jobs side by side, each in a process of its own: a crash of the extension costs one score, and none sees what it
// left behind at another.
#pragma once

#include <string>
#include <vector>

#include "host/batch/job.h"
#include "host/batch/terminal.h"

namespace brvhost {

class Pool {
 public:
  Pool(const Extension& extension, const JobSettings& settings, Terminal& terminal);

  // Runs all jobs, at most `parallel` at a time, and returns the exit status of the whole.
  int Run(const std::vector<Job>& jobs, int parallel);

 private:
  struct Running {
    const Job* job = nullptr;
    int process = 0;
    Channel channel;
    bool reported = false;  // said how it ended
  };
  struct Counts {
    int changed = 0;
    int unchanged = 0;
    int badInput = 0;
    int failed = 0;
    int Finished() const { return changed + unchanged + badInput + failed; }
  };

  // False when the system lets no more processes run at the same time than there are.
  bool TryToStart(const Job& job);
  void Start(const Job& job);
  void WaitForMessages();
  void Receive(Running& running);
  void Handle(Running& running, const Message& message);
  void Report(const Running& running, const Message& message);
  void ReportDone(const Job& job, const std::string& text);
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
