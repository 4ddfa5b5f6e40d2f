// The process that runs an extension's code, as the supervisor sees it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/batch/channel.h"
#include "host/batch/foreignoutput.h"
#include "host/batch/job.h"
#include "host/batch/offer.h"
#include "host/batch/sharedplaces.h"
#include "host/process/guardedchild.h"
#include "host/process/interrupt.h"
#include "host/process/terminal.h"

namespace brvhost {

class ExtensionProcess {
 public:
  // For up to `slots` workers at a time. The settings outlive this object. Each worker is a copy of this process as it
  // is now, and costs the more the more memory this holds. Throws std::system_error.
  ExtensionProcess(const JobSettings& settings, std::size_t slots, Terminal& terminal);

  // Starts to load the bundle. The trace goes to that file, where the settings ask for one.
  void Load(const Descriptor& trace = {}) const;

  // Waits until the bundle is loaded. Null after an interrupt. Throws BundleError, also when loading takes longer than
  // a score may.
  [[nodiscard]] std::optional<Offer> WaitForOffer();

  // The menu item that workers run from now on.
  void UseItem(int item) { item_ = item; }

  // These three wait while the process does not read, until there is an interrupt that was not passed on, and take its
  // messages in meanwhile.

  // Starts a worker; the caller closes its ends. Each line of its trace begins with the label. False where an interrupt
  // came first, and there will be no worker.
  [[nodiscard]] bool Start(std::uint64_t job, std::size_t slot, const Channel& worker, const Descriptor& output,
                           const std::string& label);
  // Cancels the work of all workers, on the interrupts so far.
  void Interrupt();
  // A worker should have ended by now, or is killed. It is reported when it has.
  void End(std::uint64_t job, bool atOnce);

  void KillOrphans() const { process_->KillOrphans(); }
  void KillAll() const { process_->KillAll(); }

  // Readable when there are more messages than it has taken in.
  Channel& Messages() { return channel_; }
  // Readable when there is something to show.
  int Output() const { return output_.Get(); }
  void ShowOutput();

  const std::string& Name() const { return name_; }
  // " in BrevixExtensionInvoke", or nothing.
  std::string WhereaboutsOf(std::size_t slot) const { return Describe(places_.whereabouts[slot]); }
  // What the extension asked for that brvhost does not have, when it was loaded or by the worker of that slot.
  std::vector<std::string> MissingFunctionsOf(std::size_t slot) const {
    return NamesOfMissing({&places_.missing[ownPlace_], &places_.missing[slot]});
  }

  // The process has ended by itself, or has no memory to go on: kills what is left, and reports how it ended. No worker
  // can be started any more.
  void Lose(bool hasMemory);
  bool IsLost() const { return isLost_; }

  // Ends the extension, and reports it if that goes wrong. Returns whether all went well.
  [[nodiscard]] bool Finish();

  // For another child of this process, which has no part in this one.
  void Forget();

 private:
  // Waits for the end of the process, which an interrupt that was not passed on cuts short. Where it went wrong, which
  // is always when the end is not expected, returns how and where, as a clause without its subject; else nothing.
  std::string WaitForEnd(bool isExpected);
  void TakeMessages();
  void ShowLine(std::string_view line) const;

  const JobSettings& settings_;
  const std::string name_;
  Terminal& terminal_;
  const std::size_t ownPlace_;
  SharedPlaces places_;
  ForeignOutput output_;
  Channel channel_;
  std::optional<GuardedChild> process_;
  int item_ = 0;
  bool isLost_ = false;
  int interruptsPassedOn_ = 0;
};

}  // namespace brvhost
