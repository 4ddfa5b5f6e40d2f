#include "host/check/itemfacts.h"

#include <fmt/format.h>

#include <cstdint>
#include <string>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/bundle/extension.h"
#include "host/check/balance.h"
#include "host/check/eachitem.h"
#include "host/check/guarded.h"
#include "host/check/trial.h"
#include "host/process/cancelkeys.h"
#include "host/score/region.h"

namespace brvhost {
namespace {

struct Result {
  int answer;
  std::vector<bool> hidden;
  std::vector<std::string> alerts;
};

// Of an item on a fresh score.
Result ResultOf(const Extension& extension, int item) {
  Trial trial(extension);
  const int answer = trial.InvokeOnWholeScore(item);
  return {answer, trial.Hidden(), trial.AskedUser().Alerts()};
}

}  // namespace

std::string RefusesWrongIndex(const std::string& path) {
  for (const int index : {ItemCountOf(Extension(path)), 0xFFFF}) {
    const Extension extension(path);
    Trial trial(extension);
    const std::vector<bool> before = trial.Hidden();
    const int answer = trial.InvokeOnWholeScore(index);
    if (answer != 0) return fmt::format("item {}, which does not exist, returns {}", index, answer);
    if (trial.Hidden() != before) return fmt::format("item {}, which does not exist, changes the score", index);
    if (!trial.AskedUser().Alerts().empty()) return fmt::format("item {}, which does not exist, shows an alert", index);
  }
  return "";
}

std::string RespectsDecline(const std::string& path) {
  return ForEachItem(path, Trial::kDeclined, [](Trial& trial, int item) -> std::string {
    const std::vector<bool> before = trial.Hidden();
    const InaccessiblePage fallback;
    const int answer = trial.Invoke(item, nullptr, static_cast<EREGION*>(fallback.Address()));
    if (answer != 0) return fmt::format("item {} still returns {}", item, answer);
    return trial.Hidden() == before ? "" : fmt::format("item {} still changes the score", item);
  });
}

std::string WorksInEmptyHost(const std::string& path, const EmptyHost& host) {
  host.Open();
  const Extension extension(path);
  const int count = ItemCountOf(extension);
  EREGION region = WholeScore(TrialScore());
  for (int item = 0; item < count; ++item) extension.Invoke(item, &region, &region);
  extension.Terminate();
  return "";
}

std::string BalancesFrames(const std::string& path) {
  return ForEachItem(path, Trial::kSelected, [](Trial& trial, int item) {
    trial.InvokeOnWholeScore(item);
    return LeftFrames(trial, item);
  });
}

std::string AvoidsLeavingCalls(const std::string& path) {
  return ForEachItem(path, Trial::kSelected, [](Trial& trial, int item) {
    trial.InvokeOnWholeScore(item);
    return FramesLeftByContract(trial, item);
  });
}

std::string BalancesEdits(const std::string& path) {
  return ForEachItem(path, Trial::kSelected, [](Trial& trial, int item) -> std::string {
    trial.InvokeOnWholeScore(item);
    return LeftOpen(trial, item);
  });
}

std::string EndsWhenCancelled(const std::string& path) {
  HoldCancelKeys();
  return BalancesFrames(path);
}

std::string ChangesNothingTwice(const std::string& path) {
  return ForEachItem(path, Trial::kSelected, [](Trial& trial, int item) -> std::string {
    trial.InvokeOnWholeScore(item);
    const std::vector<bool> once = trial.Hidden();
    const std::uint64_t saved = trial.Document().SavedFrames();
    trial.InvokeOnWholeScore(item);
    if (trial.Hidden() != once) return fmt::format("item {} changes the score again", item);
    const std::uint64_t again = trial.Document().SavedFrames() - saved;
    return again == 0 ? "" : fmt::format("item {} saves frames without a change: {} in all", item, again);
  });
}

std::string RepeatsItsResult(const std::string& path) {
  const Extension extension(path);
  const int count = ItemCountOf(extension);
  for (int item = 0; item < count; ++item) {
    const Result once = ResultOf(extension, item);
    const Result again = ResultOf(extension, item);
    if (once.answer != again.answer)
      return fmt::format("item {} returns {} and then {}", item, once.answer, again.answer);
    if (once.hidden != again.hidden) return fmt::format("item {} changes the score otherwise the second time", item);
    if (once.alerts != again.alerts) return fmt::format("item {} shows other alerts the second time", item);
  }
  return "";
}

std::string Terminates(const std::string& path) {
  const Extension extension(path);
  const Trial trial(extension);
  extension.Terminate();
  return "";
}

}  // namespace brvhost
