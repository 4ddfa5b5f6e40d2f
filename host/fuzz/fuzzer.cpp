#include "host/fuzz/fuzzer.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "host/process/interrupt.h"

namespace brvhost {
namespace {

// An extension is loaded anew after that many, so that what it gathers over rounds has an end.
constexpr std::uint64_t kRoundsOfProcess = 4000;
// The longest that a process that has ended waits for the next one, if there are not very many.
constexpr int kWaitMs = 20;

}  // namespace

Fuzzer::Fuzzer(const FuzzSettings& settings, std::function<void(const FuzzFinding&)> report)
    : settings_(settings), report_(std::move(report)), deadline_(settings.seconds), rest_(settings.seeds) {}

bool Fuzzer::IsOver() const { return deadline_.HasPassed() || InterruptCount() > 0; }

std::optional<Seeds> Fuzzer::NextSeeds() {
  if (!interrupted_.empty()) {
    const Seeds seeds = interrupted_.front();
    interrupted_.pop_front();
    return seeds;
  }
  if (rest_.count == 0) return std::nullopt;
  const Seeds seeds = {rest_.first, std::min(rest_.count, kRoundsOfProcess)};
  rest_ = rest_.After(seeds.count);
  return seeds;
}

void Fuzzer::StartProcesses() {
  while (processes_.size() < static_cast<std::size_t>(settings_.jobs)) {
    const auto seeds = NextSeeds();
    if (!seeds) return;
    processes_.push_back(std::make_unique<RoundsProcess>(settings_.rounds, *seeds, processes_));
  }
}

// A finding that comes up when the round is played alone needs no others.
FuzzFinding Fuzzer::Confirmed(const Finding& finding, const Seeds& played) const {
  const Seeds alone = played.After(played.count - 1);
  FuzzFinding found{finding, alone.first, alone};
  if (played.count == 1) return found;
  RoundsProcess again(settings_.rounds, alone, processes_);
  while (!again.WaitForEnd(kMaxWaitMs) && InterruptCount() == 0) continue;
  if (InterruptCount() > 0) return found;
  const RoundsResult result = again.Result();
  if (!result.finding || !AreAlike(*result.finding, finding)) found.needed = played;
  return found;
}

void Fuzzer::Take(RoundsProcess& process) {
  const Seeds seeds = process.GetSeeds();
  const RoundsResult result = process.Result();
  summary_.rounds += result.played;
  if (result.played < seeds.count) interrupted_.push_back(seeds.After(result.played));
  if (!result.finding) return;
  const auto isKnown = [&](const Finding& known) { return AreAlike(known, *result.finding); };
  if (std::ranges::any_of(known_, isKnown)) return;
  known_.push_back(*result.finding);
  ++summary_.findings;
  report_(Confirmed(*result.finding, {seeds.first, result.played}));
}

FuzzSummary Fuzzer::Run() {
  const int wait = std::max(1, kWaitMs / settings_.jobs);
  for (StartProcesses(); !processes_.empty() && !IsOver(); StartProcesses()) {
    for (std::size_t i = 0; i < processes_.size(); ++i) {
      if (!processes_[i]->WaitForEnd(wait)) continue;
      const auto ended = std::move(processes_[i]);
      processes_.erase(processes_.begin() + static_cast<std::ptrdiff_t>(i));
      Take(*ended);
      break;
    }
  }
  for (const auto& process : processes_) summary_.rounds += process->Stop();
  processes_.clear();
  return summary_;
}

}  // namespace brvhost
