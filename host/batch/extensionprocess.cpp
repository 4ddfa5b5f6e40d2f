#include "host/batch/extensionprocess.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <variant>

#include "host/batch/ending.h"
#include "host/batch/loader.h"
#include "host/bundle/bundlename.h"
#include "host/bundle/loadedbundle.h"
#include "host/process/closeothers.h"
#include "host/process/deadline.h"
#include "host/process/interrupt.h"
#include "host/text/reason.h"

namespace brvhost {
namespace {

// More than the texts of as many items as an extension may offer.
constexpr std::size_t kMaxMessage = std::size_t{1} << 22;

constexpr const char* kHadNoMemory = "had not enough memory";

// Nobody is there to type, and what is printed is shown as the extension's.
void RedirectStreams(const Descriptor& output) {
  const Descriptor nothing(open("/dev/null", O_RDONLY | O_CLOEXEC));
  dup2(nothing.Get(), STDIN_FILENO);
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) dup2(output.Get(), stream);
}

}  // namespace

ExtensionProcess::ExtensionProcess(const JobSettings& settings, std::size_t slots, Terminal& terminal)
    : settings_(settings),
      name_(NameOfBundle(settings.bundle)),
      terminal_(terminal),
      ownPlace_(slots),
      places_(slots + 1) {
  auto [here, there] = ConnectedChannels();
  auto [reader, writer] = ForeignOutput::Pipe();
  process_.emplace([&, &ours = here, &theirs = there, &shown = reader, &output = writer] {
    ours = {};
    shown = {};
    RedirectStreams(output);
    output = {};
    CloseOthers(theirs.Get());
    return RunLoader(settings_, std::move(theirs), places_, ownPlace_);
  });
  channel_ = std::move(here);
  channel_.Distrust(kMaxMessage);
  output_ = std::move(reader);
}

void ExtensionProcess::Load(const Descriptor& trace) const {
  if (!settings_.traces) {
    channel_.Send(LoadMessage{});
    return;
  }
  channel_.Send(LoadMessage{}, {trace.Get()});
}

std::optional<Offer> ExtensionProcess::WaitForOffer() {
  const Deadline deadline(settings_.secondsAScore);
  for (;;) {
    if (InterruptCount() > 0) return std::nullopt;
    if (deadline.HasPassed()) {
      const std::string where = WhereaboutsOf(ownPlace_);
      throw BundleError(fmt::format("{}: is not loaded within {}{}{}", settings_.bundle,
                                    SecondsText(*settings_.secondsAScore), where.empty() ? "" : ", as it hangs",
                                    where));
    }
    pollfd waiting[] = {{channel_.Get(), POLLIN, 0}, {output_.Get(), POLLIN, 0}};
    if (poll(waiting, std::size(waiting), deadline.LeftMs(kMaxWaitMs)) <= 0) continue;
    ShowOutput();
    if (waiting[0].revents == 0) continue;
    if (!channel_.Fill())
      throw BundleError(fmt::format("{}: while it was loaded, its code {}", settings_.bundle, WaitForEnd(false)));
    while (const auto message = channel_.Next()) {
      if (const auto* const offer = std::get_if<OfferMessage>(&*message)) return DecodeOffer(offer->text);
      if (const auto* const bad = std::get_if<BadBundleMessage>(&*message)) {
        WaitForEnd(true);
        throw BundleError(bad->text);
      }
      if (const auto* const failure = std::get_if<FailureMessage>(&*message)) throw std::runtime_error(failure->text);
      if (std::holds_alternative<NoMemoryMessage>(*message)) {
        throw std::runtime_error(fmt::format("{}: {} to load it", settings_.bundle, kNoMemory));
      }
    }
  }
}

bool ExtensionProcess::Start(std::uint64_t job, std::size_t slot, const Channel& worker, const Descriptor& output,
                             const std::string& label) {
  places_.missing[slot] = {};
  if (settings_.traces) {
    if (!channel_.FillUntilWritable(interruptsPassedOn_)) return false;
    channel_.Send(LabelMessage{label});
  }
  if (!channel_.FillUntilWritable(interruptsPassedOn_)) return false;
  channel_.Send(StartMessage{job, slot, static_cast<std::uint64_t>(item_)}, {worker.Get(), output.Get()});
  return true;  // where it did not get through, the end of the process is found
}

void ExtensionProcess::Interrupt() {
  interruptsPassedOn_ = InterruptCount();
  if (channel_.FillUntilWritable(interruptsPassedOn_)) channel_.Send(InterruptMessage{});
}

void ExtensionProcess::End(std::uint64_t job, bool atOnce) {
  if (channel_.FillUntilWritable(interruptsPassedOn_)) channel_.Send(EndMessage{job, atOnce});
}

void ExtensionProcess::ShowOutput() {
  output_.Read([this](std::string_view line) { ShowLine(line); });
}

void ExtensionProcess::ShowLine(std::string_view line) const {
  terminal_.PrintForeign(fmt::format("{}: {}", name_, line));
}

void ExtensionProcess::Lose(bool hasMemory) {
  isLost_ = true;
  shutdown(channel_.Get(), SHUT_WR);  // it may be there, and have given its own side up
  std::string how = WaitForEnd(true);
  if (how.empty()) how = EndingOfExtension(0, "");
  if (!hasMemory) how = kHadNoMemory;
  if (InterruptCount() > 0) return;
  terminal_.PrintError(fmt::format("the process that loaded the extension {} {}", name_, how));
}

bool ExtensionProcess::Finish() {
  if (isLost_) return false;
  shutdown(channel_.Get(), SHUT_WR);
  std::string wrong = WaitForEnd(true);
  while (const auto message = channel_.Next()) {
    if (const auto* const failure = std::get_if<FailureMessage>(&*message)) wrong = "failed: " + failure->text;
    if (std::holds_alternative<NoMemoryMessage>(*message)) wrong = kHadNoMemory;
  }
  if (InterruptCount() > 0 || wrong.empty()) return true;
  terminal_.PrintError(fmt::format("when it was ended, the extension {} {}", name_, wrong));
  return false;
}

// The loader reports the end of each worker before its own, and waits where nobody takes what it has sent.
void ExtensionProcess::TakeMessages() {
  while (channel_.HasMore()) {
    if (channel_.Fill()) continue;
    shutdown(channel_.Get(), SHUT_RD);  // it is gone, or sends more than it can have to
    return;
  }
}

std::string ExtensionProcess::WaitForEnd(bool isExpected) {
  const Deadline deadline(settings_.secondsAScore);
  bool hasEnded = false;
  while (!hasEnded && !deadline.HasPassed() && InterruptCount() == interruptsPassedOn_) {
    TakeMessages();
    hasEnded = process_->WaitForEnd(deadline.LeftMs(kMaxWaitMs));
    ShowOutput();
  }
  const auto status = hasEnded ? process_->Wait() : process_->KillAndWait();
  TakeMessages();
  output_.Finish([this](std::string_view line) { ShowLine(line); });
  const std::string where = WhereaboutsOf(ownPlace_);
  if (!hasEnded && deadline.HasPassed())
    return fmt::format("hung{} for {}", where, SecondsText(*settings_.secondsAScore));
  if (!status) return fmt::format("lost its guard{}, and was killed", where);
  return *status == 0 && isExpected ? "" : EndingOfExtension(*status, where);
}

void ExtensionProcess::Forget() {
  channel_ = {};
  output_ = {};
  process_->Forget();
}

}  // namespace brvhost
