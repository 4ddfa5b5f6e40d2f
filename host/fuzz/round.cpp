#include "host/fuzz/round.h"

#include <fmt/format.h>

#include <cstddef>

#include "host/bundle/entrypoints.h"
#include "host/check/balance.h"
#include "host/check/guarded.h"
#include "host/fuzz/fencedregion.h"
#include "host/fuzz/randomscore.h"
#include "host/services/document.h"

namespace brvhost {
namespace {

std::vector<bool> HiddenOf(const Score& score) {
  std::vector<bool> hidden;
  hidden.reserve(score.entries.size());
  for (const ScoreEntry& entry : score.entries) hidden.push_back(entry.hidden);
  return hidden;
}

int RandomItem(RandomNumbers& random, int items) {
  constexpr int kLast = 0xFFFF;
  if (!random.OneIn(16)) return random.Below(items);
  return random.OneIn(2) ? kLast : items + random.Below(kLast - items);
}

bool IsWithin(const EREGION& region, const ScoreFrame& frame, const ScoreEntry& entry) {
  if (frame.staff < region.startStaff || frame.staff > region.endStaff) return false;
  if (frame.measure < region.startMeasure || frame.measure > region.endMeasure) return false;
  if (frame.measure == region.startMeasure && entry.position < region.startPosition) return false;
  return frame.measure != region.endMeasure || entry.position <= region.endPosition;
}

std::optional<Finding> FindingOf(FindingKind kind, const std::string& text) {
  if (text.empty()) return std::nullopt;
  return Finding{kind, text};
}

}  // namespace

Round::Round(std::uint64_t seed, int items, RoundListeners& listeners)
    : items_(items),
      random_(seed),
      listeners_(listeners),
      score_(RandomScore(random_)),
      hidden_(HiddenOf(score_)),
      block_(RandomBlock(random_, score_)),
      isSelected_(!random_.OneIn(4)),
      item_(RandomItem(random_, items)),
      user_(RandomNumbers(random_.Next())) {
  listeners_.oddHost.Plan(RandomNumbers(random_.Next()));
}

std::string Round::Description() const {
  return fmt::format("item {}{}; {} staves, {} measures, {} layers, {} entries{}; {}; {}", item_,
                     IsItem() ? "" : ", which does not exist", score_.staves, score_.measures, score_.layers,
                     score_.entries.size(), isSelected_ ? "" : ", of which nothing is selected", user_.Description(),
                     listeners_.oddHost.Description());
}

int Round::Invoke(const Extension& extension, EREGION* selected, EREGION* fallback) {
  listeners_.hostBytes.Start();
  listeners_.oddHost.Start();
  try {
    const int answer = extension.Invoke(item_, selected, fallback);
    listeners_.oddHost.Stop();
    return answer;
  } catch (...) {
    listeners_.oddHost.Stop();
    throw;
  }
}

std::optional<Finding> Round::Play(const Extension& extension) {
  OpenDocument document(score_);
  document.WatchLoaders();
  Session session(extension, document, user_);
  if (isSelected_) session.Select(block_);
  FencedRegion selected(block_.region);
  FencedRegion fallback(WholeScore(score_));
  int answer = 0;
  try {
    if (IsDeclined()) {
      const InaccessiblePage page;
      answer = Invoke(extension, nullptr, static_cast<EREGION*>(page.Address()));
    } else {
      answer = Invoke(extension, isSelected_ ? selected.Record() : nullptr, fallback.Record());
    }
  } catch (const ThrownByExtension& thrown) {
    return Finding{FindingKind::kException, thrown.what()};
  }
  session.RethrowFailure();
  if (!selected.IsFenceWhole() || !fallback.IsFenceWhole()) {
    return Finding{FindingKind::kMemory, fmt::format("item {} writes beside the record of a region", item_)};
  }
  return Judge(session, answer);
}

std::optional<Finding> Round::Judge(const Session& session, int answer) const {
  if (const std::string& wrong = listeners_.hostBytes.Wrong(); !wrong.empty()) {
    return Finding{FindingKind::kMemory, fmt::format("item {} {}", item_, wrong)};
  }
  if (auto found = FindingOf(FindingKind::kFrames, LeftFrames(session.Document(), item_))) return found;
  if (auto found = FindingOf(FindingKind::kEdits, LeftOpen(session, item_))) return found;
  if (!IsItem()) return FindingOf(FindingKind::kItem, WrongWithRefusal(session, answer));
  if (IsDeclined()) return FindingOf(FindingKind::kDecline, WrongWithRefusal(session, answer));
  return FindingOf(FindingKind::kRegion, ChangeOutsideOfRegion());
}

std::string Round::WrongWithRefusal(const Session& session, int answer) const {
  const std::string item = fmt::format("item {}{}", item_, IsItem() ? "" : ", which does not exist,");
  const std::string when = IsItem() ? " though the user declines" : "";
  if (answer != 0) return fmt::format("{} returns {}{}", item, answer, when);
  const OpenDocument& document = session.Document();
  if (HiddenOf(score_) != hidden_ || !document.RefusedChange().empty() || document.AddedRecords() > 0) {
    return fmt::format("{} changes the score{}", item, when);
  }
  return !IsItem() && user_.Alerts() > 0 ? item + " shows an alert" : "";
}

std::string Round::ChangeOutsideOfRegion() const {
  if (!isSelected_) return "";
  for (const ScoreFrame& frame : score_.frames) {
    for (std::size_t i = frame.firstEntry; i < frame.firstEntry + std::size_t{frame.entryCount}; ++i) {
      const ScoreEntry& entry = score_.entries[i];
      if (entry.hidden == hidden_[i] || IsWithin(block_.region, frame, entry)) continue;
      return fmt::format("item {} changes what is outside of its region: staff {}, measure {}, position {}", item_,
                         frame.staff, frame.measure, entry.position);
    }
  }
  return "";
}

}  // namespace brvhost
