// One score, one item of an extension.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "host/files/sizelimit.h"
#include "host/files/standardstreams.h"
#include "host/score/region.h"

namespace brvhost {

// What holds for every score of a run.
struct JobSettings {
  std::string bundle;    // the path of the extension's
  std::string itemName;  // that is looked for in the menu; empty: none
  RegionRequest region;
  bool agree = false;  // to every question
  std::uint64_t maxSize = kDefaultMaxSize;
  std::optional<std::uint64_t> maxMemory;  // as the score's size demands when null
  int readers = 1;                         // threads that read one score
  std::optional<int> secondsAScore;        // no limit when null
  bool confine = false;                    // what the extension may do outside its process
  bool listsChanges = false;               // entry by entry
  bool printsJson = false;                 // a line for each score
  bool namesEachScore = false;             // also where there are several
  bool traces = false;                     // each call between the extension and brvhost
  bool tracesTimes = false;                // with the time it took
};

struct Job {
  std::string score;                  // a path, or "-" for the standard input
  std::optional<std::string> target;  // where the result goes, "-" for the standard output; nowhere when null
  bool onlyIfChanged = false;         // leave the target alone otherwise

  // Whether the result goes to a file.
  bool HasFile() const { return target && *target != kStandardStream; }

  // Whether a result with that many changed entries is written.
  bool Writes(std::size_t changedEntries) const { return target && (changedEntries > 0 || !onlyIfChanged); }
};

}  // namespace brvhost
