#include "host/batch/pool.h"

#include <fmt/format.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <system_error>

#include "host/batch/exitstatus.h"
#include "host/batch/interrupt.h"

namespace brvhost {
namespace {

std::string SignalName(int signal) { return fmt::format("{} ({})", signal, strsignal(signal)); }

}  // namespace

Pool::Pool(const Extension& extension, const JobSettings& settings, Terminal& terminal)
    : extension_(extension), settings_(settings), terminal_(terminal) {}

int Pool::Run(const std::vector<Job>& jobs, int parallel) {
  NoteInterrupts();
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
  std::fflush(nullptr);
  const pid_t process = fork();
  if (process < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (process == 0) {
    PressCancelKeysOnInterrupt();
    std::signal(SIGXFSZ, SIG_IGN);  // a file that gets too large is told like any that cannot be written
    for (Running& other : running_) other.channel = {};
    here = {};
    const int status = RunJob(job, settings_, extension_, there);
    std::fflush(nullptr);
    _exit(status);
  }
  running_.push_back({&job, process, std::move(here)});
}

void Pool::WaitForMessages() {
  std::vector<pollfd> waiting;
  for (const Running& running : running_) waiting.push_back({running.channel.Get(), POLLIN, 0});
  const int ready = poll(waiting.data(), waiting.size(), kLongestWaitMs);
  PassInterruptsOn();
  if (ready <= 0) return;
  for (std::size_t i = 0; i < waiting.size(); ++i) {
    if (waiting[i].revents != 0) Receive(running_[i]);
  }
  std::erase_if(running_, [](const Running& running) { return running.process == 0; });
}

void Pool::Receive(Running& running) {
  if (!running.channel.Fill()) return Finish(running);
  while (const auto message = running.channel.Next()) Handle(running, *message);
}

void Pool::Handle(Running& running, const Message& message) {
  switch (message.kind) {
    case MessageKind::kTell:
      return terminal_.Print(Prefixed(*running.job, message.text));
    case MessageKind::kAsk:
      return running.channel.SendAnswer(terminal_.Ask(Prefixed(*running.job, message.text)));
    case MessageKind::kWarn:
      return terminal_.PrintError(message.text);
    case MessageKind::kProgress: {
      std::int64_t done = 0;
      std::int64_t total = 0;
      std::istringstream(message.text) >> done >> total;
      if (total_ == 1) terminal_.SetBar(done, total);
      return;
    }
    case MessageKind::kProgressEnd:
      if (total_ == 1) terminal_.ClearBar();
      return;
    case MessageKind::kFailInput:
    case MessageKind::kFailOutput:
    case MessageKind::kDone:
      running.reported = true;
      return Report(running, message);
  }
}

void Pool::Report(const Running& running, const Message& message) {
  if (message.kind == MessageKind::kDone) {
    ReportDone(*running.job, message.text);
  } else {
    ++(message.kind == MessageKind::kFailInput ? counts_.badInput : counts_.failed);
    terminal_.PrintError(message.text);
  }
  if (total_ > 1) terminal_.SetBar(counts_.Finished(), static_cast<std::int64_t>(total_));
}

void Pool::ReportDone(const Job& job, const std::string& text) {
  std::uint64_t changed = 0;
  std::uint64_t entries = 0;
  std::istringstream(text) >> changed >> entries;
  ++(changed > 0 ? counts_.changed : counts_.unchanged);
  if (total_ > 1) return;
  const bool written = job.target && (changed > 0 || !job.onlyIfChanged);
  terminal_.Print(fmt::format("{}: {} of {} entries changed{}", job.score, changed, entries,
                              written ? ", written to " + *job.target : ", nothing written"));
}

void Pool::Finish(Running& running) {
  int status = 0;
  while (waitpid(running.process, &status, 0) < 0 && errno == EINTR) continue;
  running.process = 0;
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
  terminal_.Print(line);
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
