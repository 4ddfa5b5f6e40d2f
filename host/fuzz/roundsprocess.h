// A process that plays rounds one after another, until something is found.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/fuzz/finding.h"
#include "host/process/guardedchild.h"
#include "host/process/sharedarray.h"
#include "host/process/whereabouts.h"

namespace brvhost {

// Seeds one after another.
struct Seeds {
  std::uint64_t first = 0;
  std::uint64_t count = 0;

  // All but the first so many.
  Seeds After(std::uint64_t played) const { return {first + played, count - played}; }
};

struct RoundsSettings {
  std::string bundle;
  int seconds = 10;      // for each round
  bool confines = true;  // the process
};

struct RoundsResult {
  std::uint64_t played = 0;        // the round with the finding included
  std::optional<Finding> finding;  // in the last of these rounds
};

class RoundsProcess {
 public:
  // `others` are those that this process has already.
  RoundsProcess(const RoundsSettings& settings, const Seeds& seeds,
                const std::vector<std::unique_ptr<RoundsProcess>>& others);

  const Seeds& GetSeeds() const { return seeds_; }
  // Waits for its end, or for that of the time for a round, that many milliseconds at most.
  [[nodiscard]] bool WaitForEnd(int milliseconds);
  // When it has ended. Throws BundleError, and std::runtime_error for what went wrong in the host.
  RoundsResult Result();
  // Kills it, and returns how many rounds it has played.
  std::uint64_t Stop();

 private:
  // In memory that an extension may garble.
  struct State {
    enum Phase : std::uint32_t { kLoading, kPlaying, kFound, kUnusable, kFailed, kDone };
    static constexpr std::size_t kMaxText = 1000;

    std::uint32_t phase;
    std::uint32_t kind;
    std::uint64_t played;
    char text[kMaxText + 1];
  };

  int Work(const RoundsSettings& settings) const;
  void PlayAll(const RoundsSettings& settings) const;
  void Put(State::Phase phase, std::string_view text) const;
  void Put(const Finding& finding) const;
  State& Shared() const { return state_[0]; }
  std::uint64_t Played() const;
  bool HasHung() const;
  RoundsResult ResultOf(const Finding& finding) const { return {Played() + 1, finding}; }
  RoundsResult ResultOfEnd(const std::optional<int>& status) const;

  const RoundsSettings settings_;
  const Seeds seeds_;
  const SharedArray<State> state_;
  const SharedWhereabouts whereabouts_;
  std::uint64_t seen_ = 0;  // rounds that were played
  std::chrono::steady_clock::time_point since_;
  std::optional<GuardedChild> child_;
};

}  // namespace brvhost
