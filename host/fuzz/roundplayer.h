// An extension, loaded to have rounds played with it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "host/bundle/extension.h"
#include "host/fuzz/finding.h"
#include "host/fuzz/round.h"
#include "host/process/memorylimit.h"

namespace brvhost {

class RoundPlayer {
 public:
  // From now on this process has a bound on its memory. Throws BundleError, and std::runtime_error where calls cannot
  // be heard.
  explicit RoundPlayer(const std::string& bundle);

  // The round of that seed; `announce` gets its description first. Throws what went wrong in the host.
  std::optional<Finding> Play(std::uint64_t seed, const std::function<void(const std::string&)>& announce = nullptr);
  // Ends the extension.
  std::optional<Finding> End() const;

 private:
  const MemoryLimit limit_;
  RoundListeners listeners_;
  const Extension extension_;
  const int items_;
};

}  // namespace brvhost
