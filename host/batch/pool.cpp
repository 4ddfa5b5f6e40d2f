#include "host/batch/pool.h"

#include <fmt/format.h>
#include <poll.h>
#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <system_error>
#include <utility>
#include <variant>

#include "host/process/child.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"

namespace brvhost {
namespace {

std::string SignalName(int signal) { return fmt::format("{} ({})", signal, strsignal(signal)); }

}  // namespace

Pool::Pool(const Extension& extension, const JobSettings& settings, Terminal& terminal)
    : extension_(extension), settings_(settings), terminal_(terminal) {}

int Pool::Run(const std::vector<Job>& jobs, int parallel) {
  CountInterrupts();
  total_ = jobs.size();
  auto next = jobs.begin();
  for (;;) {
    while (next != jobs.end() && std::ssize(running_) < parallel && InterruptCount() == 0) {
      if (TryToStart(*next)) {
        ++next;
      } else {
        parallel = static_cast<int>(running_.size());
      }
    }
    if (running_.empty()) break;
    WaitForMessages();
  }
  terminal_.ClearBar();
  if (total_ > 1) PrintSummary();
  return Status();
}

bool Pool::TryToStart(const Job& job) {
  try {
    Start(job);
    return true;
  } catch (const std::system_error&) {
    if (running_.empty()) throw;
    return false;
  }
}

void Pool::Start(const Job& job) {
  auto [here, there] = ConnectedChannels();
  const auto work = [&, &ours = here, &theirs = there] {
    PressCancelKeysOnInterrupt([] {});
    std::signal(SIGXFSZ, SIG_IGN);  // a file that gets too large is reported like any that cannot be written
    for (Running& other : running_) other.channel = {};
    ours = {};
    return RunJob(job, settings_, extension_, theirs);
  };
  const pid_t process = StartChild(work);
  running_.push_back({&job, process, std::move(here)});
}

void Pool::WaitForMessages() {
  std::vector<pollfd> waiting;
  for (const Running& running : running_) waiting.push_back({running.channel.Get(), POLLIN, 0});
  const int ready = poll(waiting.data(), waiting.size(), kMaxWaitMs);
  PassInterruptsOn();
  if (ready <= 0) return;
  for (std::size_t i = 0; i < waiting.size(); ++i) {
    if (waiting[i].revents != 0) Receive(running_[i]);
  }
  std::erase_if(running_, [](const Running& running) { return running.process == 0; });
}

void Pool::Receive(Running& running) {
  if (!running.channel.Fill()) return Finish(running);
  while (const auto message = running.channel.Next()) {
    std::visit([&](const auto& body) { Handle(running, body); }, *message);
  }
}

void Pool::Handle(Running& running, const AlertMessage& message) {
  terminal_.PrintLine(Prefixed(*running.job, message.text));
}

void Pool::Handle(Running& running, const QuestionMessage& message) {
  running.channel.SendAnswer(terminal_.Ask(Prefixed(*running.job, message.text)));
}

void Pool::Handle(Running&, const WarningMessage& message) { terminal_.PrintError(message.text); }

void Pool::Handle(Running&, const ProgressMessage& message) {
  if (total_ == 1) terminal_.SetBar(message.done, message.total);
}

void Pool::Handle(Running&, const ProgressEndMessage&) {
  if (total_ == 1) terminal_.ClearBar();
}

void Pool::Handle(Running& running, const BadInputMessage& message) {
  ++counts_.badInput;
  terminal_.PrintError(message.text);
  Report(running);
}

void Pool::Handle(Running& running, const FailureMessage& message) {
  ++counts_.failed;
  terminal_.PrintError(message.text);
  Report(running);
}

void Pool::Handle(Running& running, const DoneMessage& message) {
  const Job& job = *running.job;
  ++(message.changedEntries > 0 ? counts_.changed : counts_.unchanged);
  if (total_ == 1) {
    terminal_.PrintLine(
        fmt::format("{}: {} of {} entries changed{}", job.score, message.changedEntries, message.entries,
                    message.filesWritten > 0 ? ", written to " + job.target.value_or("") : ", nothing written"));
  }
  Report(running);
}

void Pool::Report(Running& running) {
  running.reported = true;
  if (total_ > 1) terminal_.SetBar(counts_.Finished(), static_cast<std::int64_t>(total_));
}

void Pool::Finish(Running& running) {
  const int status = WaitForChild(std::exchange(running.process, 0));
  if (running.reported || InterruptCount() > 0) return;
  ++counts_.failed;
  const std::string reason = WIFSIGNALED(status) ? "was stopped by signal " + SignalName(WTERMSIG(status))
                                                 : fmt::format("ended with status {}", WEXITSTATUS(status));
  terminal_.PrintError(
      fmt::format("{}: the extension crashed: its process {}; nothing was written", running.job->score, reason));
}

// The first interrupt lets the extension end by itself; a second does not wait for that.
void Pool::PassInterruptsOn() {
  const int count = std::min(InterruptCount(), 2);
  if (count == interruptsPassedOn_) return;
  interruptsPassedOn_ = count;
  for (const Running& running : running_) kill(running.process, count == 1 ? SIGINT : SIGTERM);
}

void Pool::PrintSummary() {
  const int notRun = static_cast<int>(total_) - counts_.Finished();
  std::string line = fmt::format("{} scores: {} changed, {} unchanged, {} failed", total_, counts_.changed,
                                 counts_.unchanged, counts_.badInput + counts_.failed);
  if (notRun > 0) line += fmt::format(", {} not run", notRun);
  terminal_.PrintLine(line);
}

int Pool::Status() const {
  if (InterruptCount() > 0) return kInterrupted;
  if (counts_.badInput > 0) return kBadInput;
  return counts_.failed > 0 ? kFailed : kDone;
}

std::string Pool::Prefixed(const Job& job, const std::string& text) const {
  return total_ == 1 ? text : job.score + ": " + text;
}

}  // namespace brvhost
