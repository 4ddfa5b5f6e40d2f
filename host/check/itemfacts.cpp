#include "host/check/itemfacts.h"

#include <fmt/format.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/bundle/extension.h"
#include "host/check/guarded.h"
#include "host/check/trial.h"
#include "host/process/cancelkeys.h"
#include "host/score/region.h"
#include "host/services/document.h"

namespace brvhost {
namespace {

int ItemCount(const std::string& path) { return static_cast<int>(Extension(path).Items().size()); }

// What `check` finds wrong with the first item that it finds anything wrong with, each tried on a fresh score.
std::string ForEachItem(const std::string& path, Trial::Kind kind,
                        const std::function<std::string(Trial&, int)>& check) {
  const int count = ItemCount(path);
  for (int item = 0; item < count; ++item) {
    Trial trial(path, kind);
    if (std::string wrong = check(trial, item); !wrong.empty()) return wrong;
  }
  return "";
}

std::string Unbalanced(const OpenDocument& document, int item) {
  const std::vector<std::string> misuses = document.MisusesSoFar().Texts();
  if (!misuses.empty()) return fmt::format("item {} {}", item, misuses.front());
  if (document.LoadedFrames() > 0) {
    return fmt::format("item {} leaves frames loaded: {} in all", item, document.LoadedFrames());
  }
  return "";
}

}  // namespace

std::string RefusesWrongIndex(const std::string& path) {
  for (const int index : {ItemCount(path), 0xFFFF}) {
    Trial trial(path);
    const std::vector<bool> before = trial.Hidden();
    const int answer = trial.InvokeOnWholeScore(index);
    if (answer != 0) return fmt::format("item {}, which does not exist, returns {}", index, answer);
    if (trial.Hidden() != before) return fmt::format("item {}, which does not exist, changes the score", index);
    if (trial.AskedUser().Alerts() > 0) return fmt::format("item {}, which does not exist, shows an alert", index);
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
  const int count = static_cast<int>(extension.Items().size());
  EREGION region = WholeScore(TrialScore());
  for (int item = 0; item < count; ++item) extension.Invoke(item, &region, &region);
  extension.Terminate();
  return "";
}

std::string BalancesFrames(const std::string& path) {
  return ForEachItem(path, Trial::kSelected, [](Trial& trial, int item) {
    trial.InvokeOnWholeScore(item);
    return Unbalanced(trial.Document(), item);
  });
}

std::string BalancesEdits(const std::string& path) {
  return ForEachItem(path, Trial::kSelected, [](Trial& trial, int item) -> std::string {
    trial.InvokeOnWholeScore(item);
    if (trial.OpenSession().ShowsProgress()) return fmt::format("item {} leaves the progress display open", item);
    return trial.Document().EditDepth() == 0 ? "" : fmt::format("item {} leaves an edit open", item);
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

std::string Terminates(const std::string& path) {
  const Trial trial(path);
  trial.Terminate();
  return "";
}

}  // namespace brvhost
