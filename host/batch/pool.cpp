#include "host/batch/pool.h"

#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <iterator>
#include <memory>
#include <numeric>
#include <system_error>
#include <utility>
#include <variant>

#include "host/batch/ending.h"
#include "host/batch/keeper.h"
#include "host/batch/mayhelp.h"
#include "host/calls/missingfunctions.h"
#include "host/process/background.h"
#include "host/process/child.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/process/kinship.h"
#include "host/process/memoryreserve.h"
#include "host/text/reason.h"

namespace brvhost {
namespace {

// A keeper whose worker was killed has that long to notice.
constexpr int kSecondsToNotice = 1;

// That are kept. An extension may cause any number.
constexpr std::size_t kMaxWarningsAScore = 100;

}  // namespace

Pool::Pool(const std::vector<Job>& jobs, const JobSettings& settings, ExtensionProcess& extension, Terminal& terminal,
           std::size_t parallel)
    : jobs_(jobs),
      settings_(settings),
      extension_(extension),
      terminal_(terminal),
      slots_(parallel),
      parallel_(parallel),
      waiting_(jobs.size()),
      results_(jobs, settings, terminal) {
  std::iota(waiting_.begin(), waiting_.end(), std::size_t{0});
}

Pool::~Pool() {
  for (std::size_t slot = 0; slot < slots_.size(); ++slot) KillKeeper(slot);
}

std::size_t Pool::Busy() const {
  const auto isBusy = [](const KeeperProcess& keeper) { return keeper.work.has_value(); };
  return static_cast<std::size_t>(std::ranges::count_if(slots_, isBusy));
}

int Pool::Run() {
  isLoaded_ = true;
  for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
    if (slots_[slot].work) StartWorker(slot);
  }
  for (;;) {
    StartJobs();
    if (Busy() == 0) break;
    Wait();
  }
  for (KeeperProcess& keeper : slots_) keeper.channel = {};  // which ends them, while the extension is ended
  results_.Finish();
  ReportMissingFunctions();
  return results_.Status();
}

void Pool::StartJobs() {
  for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
    if (waiting_.empty() || InterruptCount() > 0 || extension_.IsLost() || Busy() == parallel_) return;
    if (slots_[slot].work) continue;
    try {
      Start(slot);
    } catch (const std::system_error&) {
      if (Busy() == 0) throw;
      parallel_ = Busy();  // the system allows no more at the same time
    }
  }
}

void Pool::Start(std::size_t slot) {
  KeeperProcess& keeper = slots_[slot];
  if (keeper.channel.Get() < 0) StartKeeper(slot);
  auto [reader, writer] = ForeignOutput::Pipe();
  auto [ofKeeper, ofWorker] = ConnectedChannels();
  keeper.channel.Send(JobMessage{waiting_.front()}, {ofKeeper.Get()});
  keeper.work.emplace();
  keeper.work->job = waiting_.front();
  keeper.work->worker = std::move(ofWorker);
  keeper.work->printed = std::move(writer);
  keeper.work->output = std::move(reader);
  waiting_.pop_front();
  if (isLoaded_) StartWorker(slot);
}

void Pool::StartKeeper(std::size_t slot) {
  auto [here, there] = ConnectedChannels();
  if (results_.IsOfOneJob()) {
    ReserveMemory();  // the limit of the score's memory is one of the whole process
    const auto channel = std::make_shared<Channel>(std::move(there));
    RunInBackground([jobs = jobs_, settings = settings_, channel] { RunKeeper(jobs, settings, *channel); });
    slots_[slot].channel = std::move(here);
    return;
  }
  const pid_t self = getpid();
  const auto work = [&, &ours = here, &theirs = there] {
    DieWithParent(self);
    extension_.Forget();
    for (KeeperProcess& other : slots_) other = {};
    ours = {};
    RunKeeper(jobs_, settings_, theirs);
    return kDone;
  };
  slots_[slot].process = StartChild(work);
  slots_[slot].channel = std::move(here);
}

void Pool::StartWorker(std::size_t slot) {
  Work& work = *slots_[slot].work;
  const std::string label = results_.Prefixed(JobOf(slot), "");
  if (!extension_.Start(work.job, slot, work.worker, work.printed, label)) {
    work.workerStatus = EndedMessage::kNotStarted;
  }
  work.worker = {};
  work.printed = {};
  work.deadline = Deadline(settings_.secondsAScore);
}

void Pool::Wait() {
  std::vector<pollfd> waiting;
  if (!extension_.IsLost()) {
    waiting.push_back({extension_.Messages().Get(), POLLIN, 0});
    waiting.push_back({extension_.Output(), POLLIN, 0});
  }
  for (const KeeperProcess& keeper : slots_) {
    if (!keeper.work) continue;
    waiting.push_back({keeper.channel.Get(), POLLIN, 0});
    waiting.push_back({keeper.work->output.Get(), POLLIN, 0});
  }
  const int ready = poll(waiting.data(), waiting.size(), kMaxWaitMs);
  PassInterruptsOn();
  if (ready > 0) Hear(waiting);
  TakeEndsOfWorkers();
  LookAtTime();
}

void Pool::Hear(const std::vector<pollfd>& waiting) {
  const auto isReady = [&waiting](int descriptor) {
    const auto found = std::ranges::find(waiting, descriptor, &pollfd::fd);
    return descriptor >= 0 && found != waiting.end() && found->revents != 0;
  };
  for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
    if (slots_[slot].work && isReady(slots_[slot].work->output.Get())) ShowOutput(slot);
    if (slots_[slot].work && isReady(slots_[slot].channel.Get())) HearKeeper(slot);
  }
  if (extension_.IsLost()) return;
  extension_.ShowOutput();
  if (isReady(extension_.Messages().Get())) HearExtension();
}

void Pool::HearKeeper(std::size_t slot) {
  KeeperProcess& keeper = slots_[slot];
  if (!keeper.channel.Fill()) {
    keeper.channel = {};
    const pid_t process = std::exchange(keeper.process, 0);
    const int status = process == 0 ? 0 : WaitForChild(process);
    const std::string how = process == 0 ? "closed the connection" : "crashed: " + EndingOf(status);
    if (keeper.work->isLate) return FinishLost(slot);
    return Fail(slot, "brvhost's own process " + how + "; the score is as it was, or done", MayPass(status));
  }
  if (keeper.work) NoteMissingFunctions(slot);
  while (const auto message = keeper.work ? keeper.channel.Next() : std::nullopt) {
    std::visit([this, slot](const auto& body) { Handle(slot, body); }, *message);
  }
}

void Pool::HearExtension() {
  if (!extension_.Messages().Fill()) LoseExtension(true);
}

// Also what was taken in while a message was sent.
void Pool::TakeEndsOfWorkers() {
  if (extension_.IsLost()) return;
  while (const auto message = extension_.Messages().Next()) {
    if (std::holds_alternative<NoMemoryMessage>(*message)) return LoseExtension(false);
    const auto* const ended = std::get_if<EndedMessage>(&*message);
    if (ended == nullptr) continue;
    if (Busy() <= 1) extension_.KillOrphans();  // they may be helpers of the other workers'
    for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
      auto& work = slots_[slot].work;
      if (!work || work->job != ended->job) continue;
      work->workerStatus = ended->status;
      if (work->isLost) {
        FinishLost(slot);
      } else {
        slots_[slot].channel.Send(WorkerEndedMessage{});
      }
    }
  }
}

// The workers end with their loader, and no other can be started.
void Pool::LoseExtension(bool hasMemory) {
  extension_.Lose(hasMemory);
  for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
    auto& work = slots_[slot].work;
    if (!work) continue;
    work->workerStatus = EndedMessage::kUnknown;
    if (work->isLost) FinishLost(slot);
  }
}

void Pool::LookAtTime() {
  for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
    auto& work = slots_[slot].work;
    if (!work || !work->deadline.HasPassed()) continue;
    if (work->isLate) {
      KillKeeper(slot);  // which has not noticed that its worker is gone, as it cannot get the score read
      FinishLost(slot);
      continue;
    }
    work->isLate = true;
    work->deadline = Deadline(kSecondsToNotice);
    extension_.End(work->job, true);
  }
}

void Pool::KillKeeper(std::size_t slot) {
  KeeperProcess& keeper = slots_[slot];
  keeper.channel = {};
  if (keeper.process == 0) return;
  kill(keeper.process, SIGKILL);
  WaitForChild(std::exchange(keeper.process, 0));
}

void Pool::Handle(std::size_t slot, const AlertMessage& message) {
  ShowOutput(slot);
  for (std::size_t start = 0; start <= message.text.size();) {
    const std::size_t end = std::min(message.text.find('\n', start), message.text.size());
    terminal_.PrintLine(results_.Prefixed(JobOf(slot), message.text.substr(start, end - start)));
    start = end + 1;
  }
}

void Pool::Handle(std::size_t slot, const QuestionMessage& message) {
  ShowOutput(slot);
  const auto asked = std::chrono::steady_clock::now();
  const std::uint8_t yes = terminal_.Ask(results_.Prefixed(JobOf(slot), message.text)) ? 1 : 0;
  for (KeeperProcess& keeper : slots_) {  // the time that the user takes counts against no score
    if (keeper.work) keeper.work->deadline.Extend(std::chrono::steady_clock::now() - asked);
  }
  slots_[slot].channel.Send(AnswerMessage{yes});
}

void Pool::Handle(std::size_t slot, const HandedOutMessage&) {
  slots_[slot].work->isHandedOut = true;
  slots_[slot].work->deadline = Deadline(settings_.secondsAScore);
}

// From here on brvhost itself is at work, and has no limit.
void Pool::Handle(std::size_t slot, const HandedBackMessage&) {
  slots_[slot].work->isLate = false;
  slots_[slot].work->deadline = {};
}

void Pool::Handle(std::size_t slot, const WarningMessage& message) {
  terminal_.PrintWarning(message.text);
  auto& warnings = FindingsOf(slot).warnings;
  if (warnings.size() < kMaxWarningsAScore) warnings.push_back(message.text);
}

void Pool::Handle(std::size_t, const ProgressMessage& message) {
  if (results_.IsOfOneJob()) terminal_.SetBar(message.done, message.total);
}

void Pool::Handle(std::size_t, const ProgressEndMessage&) {
  if (results_.IsOfOneJob()) terminal_.ClearBar();
}

void Pool::Handle(std::size_t slot, const BadInputMessage& message) {
  ShowOutput(slot);
  results_.ReportBadInput(JobOf(slot), FindingsOf(slot), message.text);
  Refuse(slot);
}

void Pool::Handle(std::size_t slot, const FailureMessage& message) {
  ShowOutput(slot);
  results_.ReportFailure(JobOf(slot), FindingsOf(slot), message.text, false);
  Refuse(slot);
}

void Pool::Handle(std::size_t slot, const PassingFailureMessage& message) {
  ShowOutput(slot);
  results_.ReportFailure(JobOf(slot), FindingsOf(slot), message.text, true);
  Refuse(slot);
}

void Pool::Handle(std::size_t slot, const NoMemoryMessage&) {
  extension_.End(slots_[slot].work->job, false);
  KillKeeper(slot);
  Fail(slot, fmt::format("{}; the score is as it was, or done", kNoMemory), true);
}

void Pool::Refuse(std::size_t slot) {
  extension_.End(slots_[slot].work->job, false);
  Finish(slot);
}

void Pool::Handle(std::size_t slot, const MemberMessage& message) { FindingsOf(slot).member = message.text; }

void Pool::Handle(std::size_t slot, const RegionMessage& message) { FindingsOf(slot).region = message.text; }

void Pool::Handle(std::size_t slot, const ChangesMessage& message) {
  ShowOutput(slot);
  FindingsOf(slot).changes = message.text;
  ListChanges();
}

void Pool::ListChanges() {
  const auto hasChanges = [](const KeeperProcess& keeper) {
    return keeper.work && !keeper.work->findings.changes.empty();
  };
  if (!listed_) {
    const auto next = std::ranges::find_if(slots_, hasChanges);
    if (next == slots_.end()) return;
    listed_ = static_cast<std::size_t>(std::distance(slots_.begin(), next));
  }
  KeeperProcess& keeper = slots_[*listed_];
  if (!hasChanges(keeper)) return;
  results_.List(JobOf(*listed_), keeper.work->findings);
  keeper.work->findings.changes.clear();
  keeper.channel.Send(MoreMessage{});
}

void Pool::Handle(std::size_t slot, const DoneMessage& message) {
  ShowOutput(slot);
  results_.ReportDone(JobOf(slot), FindingsOf(slot), message);
  Finish(slot);
}

void Pool::Handle(std::size_t slot, const LostMessage&) {
  Work& work = *slots_[slot].work;
  work.isLost = true;
  if (work.workerStatus) return FinishLost(slot);
  extension_.End(work.job, false);
}

void Pool::FinishLost(std::size_t slot) {
  if (InterruptCount() > 0) return Interrupt(slot);
  if (slots_[slot].work->workerStatus == EndedMessage::kNotStarted && Busy() > 1) {
    waiting_.push_front(slots_[slot].work->job);
    Finish(slot);
    parallel_ = Busy();
    return;
  }
  Fail(slot, WhyLost(slot) + "; nothing was written", IsLossPassing(*slots_[slot].work));
}

bool Pool::IsLossPassing(const Work& work) const {
  const auto status = work.workerStatus.value_or(EndedMessage::kUnknown);
  return work.isLate || status < 0 || MayPass(static_cast<int>(status));
}

std::string Pool::WhyLost(std::size_t slot) const {
  const Work& work = *slots_[slot].work;
  const std::string where = extension_.WhereaboutsOf(slot);
  if (work.isLate && !work.isHandedOut) {
    return fmt::format("could not be read within {}", SecondsText(settings_.secondsAScore.value_or(0)));
  }
  if (work.isLate) {
    return fmt::format("the extension {} did not end{} within {}", extension_.Name(), where,
                       SecondsText(settings_.secondsAScore.value_or(0)));
  }
  const auto status = work.workerStatus.value_or(EndedMessage::kUnknown);
  if (status == EndedMessage::kNotStarted) return "the system allows no more processes";
  if (status == EndedMessage::kUnknown) {
    return fmt::format("the process of the extension {} is gone", extension_.Name());
  }
  return fmt::format("the extension {} {}", extension_.Name(), EndingOfExtension(static_cast<int>(status), where));
}

void Pool::Fail(std::size_t slot, const std::string& reason, bool retry) {
  ShowOutput(slot);
  NoteMissingFunctions(slot);
  results_.ReportFailure(JobOf(slot), FindingsOf(slot), fmt::format("{}: {}", InputName(JobOf(slot).score), reason),
                         retry);
  Finish(slot);
}

void Pool::Interrupt(std::size_t slot) {
  NoteMissingFunctions(slot);
  results_.ReportInterrupted(JobOf(slot), FindingsOf(slot));
  Finish(slot);
}

void Pool::Finish(std::size_t slot) {
  auto& work = slots_[slot].work;
  work->output.Finish([&](std::string_view line) { ShowLine(slot, line); });
  work.reset();
  if (listed_ != slot) return;
  listed_.reset();
  ListChanges();
}

void Pool::NoteMissingFunctions(std::size_t slot) {
  std::vector<std::string>& names = FindingsOf(slot).missingFunctions;
  names = extension_.MissingFunctionsOf(slot);
  std::vector<std::string> news;
  for (const std::string& name : names) {
    if (missingFunctions_.insert(name).second) news.push_back(name);
  }
  if (!settings_.namesEachScore || news.empty()) return;
  terminal_.PrintWarning(results_.Prefixed(JobOf(slot), MissingText(extension_.Name(), news)));
}

void Pool::ReportMissingFunctions() {
  if (missingFunctions_.empty()) return;
  terminal_.PrintWarning(MissingText(extension_.Name(), {missingFunctions_.begin(), missingFunctions_.end()}));
}

void Pool::ShowOutput(std::size_t slot) {
  slots_[slot].work->output.Read([&](std::string_view line) { ShowLine(slot, line); });
}

void Pool::ShowLine(std::size_t slot, std::string_view line) {
  terminal_.PrintForeign(results_.Prefixed(JobOf(slot), fmt::format("{}: {}", extension_.Name(), line)));
}

// The first interrupt lets the extension end by itself; a second does not wait for anything.
void Pool::PassInterruptsOn() {
  const int count = std::min(InterruptCount(), 2);
  if (count == interruptsPassedOn_) return;
  interruptsPassedOn_ = count;
  for (const KeeperProcess& keeper : slots_) {
    if (keeper.process != 0) kill(keeper.process, SIGINT);
  }
  if (count == 1) return extension_.Interrupt();
  extension_.KillAll();
  for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
    KillKeeper(slot);
    if (slots_[slot].work) Interrupt(slot);
  }
}

}  // namespace brvhost
