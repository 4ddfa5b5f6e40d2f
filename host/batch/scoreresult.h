// How the work on a score came out.
#pragma once

#include <optional>
#include <string>

#include "host/batch/message.h"

namespace brvhost {

enum class Outcome {
  kWritten,
  kUnchanged,    // so that nothing was written
  kWouldChange,  // in a dry run
  kBadInput,     // the score cannot be used
  kFailed,
  kInterrupted,  // while somebody worked on it
  kNotRun,
};

// As it is written in JSON.
inline const char* NameOf(Outcome outcome) {
  constexpr const char* kNames[] = {"written", "unchanged",   "wouldChange", "badInput",
                                    "failed",  "interrupted", "notRun"};
  return kNames[static_cast<int>(outcome)];
}

struct ScoreResult {
  Outcome outcome = Outcome::kNotRun;
  bool retry = false;               // whether a repetition may help
  std::optional<DoneMessage> done;  // where there is a result
  std::string error;                // why there is none; empty where that is nobody's fault
};

}  // namespace brvhost
