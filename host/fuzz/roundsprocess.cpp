#include "host/fuzz/roundsprocess.h"

#include <fmt/format.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <exception>
#include <stdexcept>

#include "host/bundle/loadedbundle.h"
#include "host/fuzz/roundplayer.h"
#include "host/process/child.h"
#include "host/process/confinement.h"
#include "host/process/deadline.h"
#include "host/process/exitstatus.h"
#include "host/process/silence.h"
#include "host/text/reason.h"

namespace brvhost {
namespace {

FindingKind KindIn(std::uint32_t number) {
  return static_cast<FindingKind>(std::min(number, static_cast<std::uint32_t>(FindingKind::kShortage)));
}

}  // namespace

RoundsProcess::RoundsProcess(const RoundsSettings& settings, const Seeds& seeds,
                             const std::vector<std::unique_ptr<RoundsProcess>>& others)
    : settings_(settings), seeds_(seeds), state_(1), whereabouts_(1), since_(std::chrono::steady_clock::now()) {
  child_.emplace([&] {
    for (const auto& other : others) other->child_->Forget();
    return Work(settings);
  });
}

int RoundsProcess::Work(const RoundsSettings& settings) const {
  SilenceStreams();
  ReportWhereaboutsTo(whereabouts_[0]);
  try {
    if (settings.confines) Confine();
    PlayAll(settings);
    return kDone;
  } catch (const BundleError& error) {
    Put(State::kUnusable, error.what());
  } catch (const std::exception& error) {
    Put(State::kFailed, ReasonOf(error));
  }
  return kFailed;
}

void RoundsProcess::PlayAll(const RoundsSettings& settings) const {
  RoundPlayer player(settings.bundle);
  Shared().phase = State::kPlaying;
  for (std::uint64_t round = 0; round < seeds_.count; ++round) {
    Shared().played = round;
    if (const auto finding = player.Play(seeds_.first + round)) return Put(*finding);
  }
  if (const auto finding = player.End()) return Put(*finding);
  Shared().played = seeds_.count;
  Shared().phase = State::kDone;
}

void RoundsProcess::Put(State::Phase phase, std::string_view text) const {
  const std::size_t length = std::min(text.size(), State::kMaxText);
  std::memcpy(Shared().text, text.data(), length);
  Shared().text[length] = '\0';
  Shared().phase = phase;
}

void RoundsProcess::Put(const Finding& finding) const {
  Shared().kind = static_cast<std::uint32_t>(finding.kind);
  Put(State::kFound, finding.text);
}

// An extension may have garbled it.
std::uint64_t RoundsProcess::Played() const { return std::min(Shared().played, seeds_.count); }

bool RoundsProcess::HasHung() const {
  return std::chrono::steady_clock::now() - since_ >= std::chrono::seconds(settings_.seconds);
}

bool RoundsProcess::WaitForEnd(int milliseconds) {
  if (child_->WaitForEnd(milliseconds)) return true;
  if (seen_ != Played()) since_ = std::chrono::steady_clock::now();
  seen_ = Played();
  return HasHung();
}

RoundsResult RoundsProcess::Result() {
  const bool hasEnded = child_->WaitForEnd(0);
  const auto status = hasEnded ? child_->Wait() : child_->KillAndWait();
  const std::string where = Describe(whereabouts_[0]);
  if (hasEnded) return ResultOfEnd(status);
  const std::string text = fmt::format("does not return{} within {}", where, SecondsText(settings_.seconds));
  if (Shared().phase == State::kLoading) throw BundleError(settings_.bundle + ": " + text);
  return ResultOf({FindingKind::kHang, text});
}

RoundsResult RoundsProcess::ResultOfEnd(const std::optional<int>& status) const {
  const std::string text(Shared().text, strnlen(Shared().text, State::kMaxText));
  switch (Shared().phase) {
    case State::kDone:
      return {seeds_.count, std::nullopt};
    case State::kFound:
      return ResultOf({KindIn(Shared().kind), text});
    case State::kUnusable:
      throw BundleError(text);
    case State::kFailed:
      throw std::runtime_error(text);
    default:
      break;
  }
  const std::string where = Describe(whereabouts_[0]);
  const bool hasCrashed = status && WIFSIGNALED(*status);
  const std::string ending =
      !status ? fmt::format("kills what guards it{}", where)
              : fmt::format("{}{}: {}", hasCrashed ? "crashes" : "ends the process", where, EndingOf(*status));
  if (Shared().phase == State::kLoading) throw BundleError(settings_.bundle + ": " + ending);
  return ResultOf({hasCrashed ? FindingKind::kCrash : FindingKind::kExit, ending});
}

std::uint64_t RoundsProcess::Stop() {
  child_->KillAndWait();
  return Played();
}

}  // namespace brvhost
