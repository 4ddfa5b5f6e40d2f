#include "host/batch/loader.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <initializer_list>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

#include "host/batch/offer.h"
#include "host/batch/worker.h"
#include "host/bundle/extension.h"
#include "host/calls/trace.h"
#include "host/process/child.h"
#include "host/process/confinement.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/process/kinship.h"
#include "host/process/memoryshortage.h"
#include "host/text/printable.h"
#include "host/text/reason.h"

namespace brvhost {
namespace {

using Clock = std::chrono::steady_clock;

// A worker that has nothing left to do has that long to end, and is looked after that often until then.
constexpr std::chrono::seconds kGrace{1};
constexpr int kShortWaitMs = 5;

class Loader {
 public:
  // `trace` may be null.
  Loader(const Extension& extension, const JobSettings& settings, Channel& supervisor, const SharedPlaces& places,
         Trace* trace)
      : extension_(extension), settings_(settings), supervisor_(supervisor), places_(places), trace_(trace) {}

  // Until the supervisor closes its end.
  void Serve() {
    std::signal(SIGCHLD, SIG_DFL);  // whatever the extension made of it
    for (;;) {
      pollfd waiting = {supervisor_.Get(), POLLIN, 0};
      const int ready = poll(&waiting, 1, WaitMs());
      if (ready > 0 && !supervisor_.Fill()) return;
      while (const auto message = supervisor_.Next()) {
        std::visit([this](const auto& body) { Handle(body); }, *message);
      }
      LookAfterWorkers();
    }
  }

 private:
  struct Worker {
    std::uint64_t job = 0;
    pid_t process = 0;
    std::optional<Clock::time_point> due;  // to be killed then
  };

  template <class Other>
  void Handle(const Other&) {}

  void Handle(const LabelMessage& message) { label_ = Printable(message.text); }

  void Handle(const StartMessage& message) {
    Channel keeper(supervisor_.TakeDescriptor());
    const Descriptor output = supervisor_.TakeDescriptor();
    const pid_t self = getpid();
    try {
      const pid_t process = StartChild([&] {
        DieWithParent(self);
        ReportTo(places_, message.slot);
        supervisor_ = {};
        if (trace_ != nullptr) trace_->Label(label_);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) dup2(output.Get(), stream);
        return RunWorker(extension_, settings_, static_cast<int>(message.item), std::move(keeper));
      });
      workers_.push_back({message.job, process, std::nullopt});
    } catch (const std::system_error&) {
      supervisor_.Send(EndedMessage{message.job, EndedMessage::kNotStarted});
    }
  }

  void Handle(const InterruptMessage&) {
    for (const Worker& worker : workers_) kill(worker.process, SIGINT);
  }

  void Handle(const EndMessage& message) {
    for (Worker& worker : workers_) {
      if (worker.job == message.job) worker.due = Clock::now() + (message.atOnce != 0 ? Clock::duration(0) : kGrace);
    }
  }

  int WaitMs() const {
    if (workers_.empty()) return -1;
    for (const Worker& worker : workers_) {
      if (worker.due) return kShortWaitMs;
    }
    return kMaxWaitMs;
  }

  void LookAfterWorkers() {
    std::erase_if(workers_, [this](const Worker& worker) {
      if (worker.due && *worker.due <= Clock::now()) kill(worker.process, SIGKILL);
      int status = 0;
      const pid_t ended = waitpid(worker.process, &status, WNOHANG);
      if (ended == 0) return false;
      supervisor_.Send(EndedMessage{worker.job, ended > 0 ? status : EndedMessage::kUnknown});
      return true;
    });
  }

  const Extension& extension_;
  const JobSettings& settings_;
  Channel& supervisor_;
  const SharedPlaces& places_;
  Trace* const trace_;
  std::string label_;  // of the next worker's trace
  std::vector<Worker> workers_;
};

// Null where there is nothing to serve, or the extension has closed the line.
std::unique_ptr<Extension> Load(const JobSettings& settings, const Channel& supervisor) {
  const std::string& path = settings.bundle;
  try {
    auto [extension, offer] = WithEnoughMemory([&] {
      auto loaded = std::make_unique<Extension>(path);
      Offer offered{loaded->Items(), {}, loaded->MenuStatus() != 0};
      if (!settings.itemName.empty()) offered.matches = loaded->MatchesOf(settings.itemName, offered.items.size());
      return std::pair(std::move(loaded), EncodeOffer(offered));
    });
    if (supervisor.Send(OfferMessage{std::move(offer)})) return std::move(extension);
  } catch (const BundleError& error) {
    supervisor.Send(BadBundleMessage{error.what()});
  } catch (const ThrownByExtension& exception) {
    supervisor.Send(BadBundleMessage{path + ": " + exception.what()});
  }
  return nullptr;
}

// What an extension registered to run at the end of its process runs, too.
[[noreturn]] void End(const Extension& extension, const Channel& supervisor) {
  try {
    extension.Terminate();
  } catch (const ThrownByExtension& exception) {
    supervisor.Send(FailureMessage{exception.what()});
  }
  const InExtension here("its destructors");
  std::exit(kDone);
}

int LoadAndServe(const JobSettings& settings, Channel& supervisor, const SharedPlaces& places) {
  try {
    if (settings.confine) Confine();
  } catch (const std::exception& error) {
    supervisor.Send(FailureMessage{ReasonOf(error)});
    return kFailed;
  }
  if (!supervisor.Receive()) return kDone;
  std::optional<Trace> trace;
  try {
    if (settings.traces) trace.emplace(supervisor.TakeDescriptor(), settings.tracesTimes);
  } catch (const std::runtime_error& error) {
    supervisor.Send(FailureMessage{error.what()});
    return kFailed;
  }
  const auto extension = Load(settings, supervisor);
  if (extension == nullptr) return kBadBundle;
  Loader(*extension, settings, supervisor, places, trace ? &*trace : nullptr).Serve();
  End(*extension, supervisor);
}

}  // namespace

int RunLoader(const JobSettings& settings, Channel supervisor, const SharedPlaces& places, std::size_t ownPlace) {
  ReportTo(places, ownPlace);
  try {
    return LoadAndServe(settings, supervisor, places);
  } catch (const std::bad_alloc&) {
    supervisor.Send(NoMemoryMessage{});
    return kFailed;
  }
}

}  // namespace brvhost
