// Plays random rounds with an extension, in processes of their own.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "host/fuzz/finding.h"
#include "host/fuzz/roundsprocess.h"
#include "host/process/deadline.h"

namespace brvhost {

struct FuzzSettings {
  RoundsSettings rounds;
  Seeds seeds;                 // as many at most
  std::optional<int> seconds;  // for all of them
  int jobs = 1;                // processes at a time
};

struct FuzzFinding {
  Finding finding;
  std::uint64_t seed = 0;
  // What has to be played for it to come up: the round of the seed alone, or others before it in the same process.
  Seeds needed;

  bool NeedsOthers() const { return needed.count > 1; }
};

struct FuzzSummary {
  std::uint64_t rounds = 0;
  std::uint64_t findings = 0;  // each kind once
};

class Fuzzer {
 public:
  // `report` gets each kind of finding when it comes up first.
  Fuzzer(const FuzzSettings& settings, std::function<void(const FuzzFinding&)> report);

  // Until all is played, the time is over, or the user interrupts it. Throws BundleError, and std::runtime_error for
  // what went wrong in the host.
  FuzzSummary Run();

 private:
  bool IsOver() const;
  void StartProcesses();
  std::optional<Seeds> NextSeeds();
  void Take(RoundsProcess& process);
  FuzzFinding Confirmed(const Finding& finding, const Seeds& played) const;

  const FuzzSettings settings_;
  const std::function<void(const FuzzFinding&)> report_;
  const Deadline deadline_;
  Seeds rest_;
  std::deque<Seeds> interrupted_;  // what is left of those in which something was found
  std::vector<std::unique_ptr<RoundsProcess>> processes_;
  std::vector<Finding> known_;
  FuzzSummary summary_;
};

}  // namespace brvhost
