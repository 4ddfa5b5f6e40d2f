// One random round: an item on a score, and whether all is as it has to be then.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/bundle/extension.h"
#include "host/fuzz/finding.h"
#include "host/fuzz/hostbytes.h"
#include "host/fuzz/oddhost.h"
#include "host/fuzz/randomnumbers.h"
#include "host/fuzz/randomuser.h"
#include "host/score/region.h"
#include "host/score/score.h"
#include "host/services/session.h"

namespace brvhost {

// Who hears of the calls. There before the extension is loaded.
struct RoundListeners {
  OddHost oddHost;
  HostBytes hostBytes;
};

class Round {
 public:
  // What is done in it follows from the seed and from how many items the extension has, at least 1, alone. One round at
  // a time.
  Round(std::uint64_t seed, int items, RoundListeners& listeners);

  // What is odd or random in it, as a line for people.
  std::string Description() const;
  // Once. Throws std::bad_alloc, and what else went wrong in the host.
  std::optional<Finding> Play(const Extension& extension);

 private:
  bool IsItem() const { return item_ < items_; }
  // Nothing is selected, and the user does not agree to anything.
  bool IsDeclined() const { return !isSelected_ && user_.Declines(); }

  // The extension's answer. `selected` is null where nothing is.
  int Invoke(const Extension& extension, EREGION* selected, EREGION* fallback);
  // What is wrong with what the extension has done and left behind.
  std::optional<Finding> Judge(const Session& session, int answer) const;
  std::string WrongWithRefusal(const Session& session, int answer) const;
  std::string ChangeOutsideOfRegion() const;

  const int items_;
  RandomNumbers random_;
  RoundListeners& listeners_;
  Score score_;
  const std::vector<bool> hidden_;  // whether each entry was at first
  const Block block_;
  const bool isSelected_;
  const int item_;
  RandomUser user_;
};

}  // namespace brvhost
