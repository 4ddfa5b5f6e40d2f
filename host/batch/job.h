// One score, one item of an extension: the work of a process of its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/batch/channel.h"
#include "host/bundle/extension.h"
#include "host/files/scorefile.h"
#include "host/score/region.h"

namespace brvhost {

// What holds for every score of a run.
struct JobSettings {
  int item = 0;
  RegionRequest region;
  std::vector<int> shownLayers;  // from 0; all when empty
  bool agree = false;            // to every question
  std::uint64_t maxSize = kDefaultMaxSize;
  std::optional<std::uint64_t> maxMemory;  // as the score's size demands when null
  int readers = 1;                         // threads that read one score
};

struct Job {
  std::string score;
  std::optional<std::string> target;  // where the result goes; nowhere when null
  bool onlyIfChanged = false;         // leave the target alone otherwise

  // Whether a result with that many changed entries is written.
  bool Writes(std::size_t changedEntries) const { return target && (changedEntries > 0 || !onlyIfChanged); }
};

// Runs the job, reports to `channel` what happens, and returns the process's exit status. Whatever the extension does
// to this process, the target is the old file or the whole new one.
[[nodiscard]] int RunJob(const Job& job, const JobSettings& settings, const Extension& extension,
                         const Channel& channel);

}  // namespace brvhost
