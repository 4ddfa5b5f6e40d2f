// What `fuzz` prints: for people, whose lines have their ends and are printable, and in JSON.
#pragma once

#include <cstdint>
#include <string>

#include "host/fuzz/fuzzer.h"

namespace brvhost {

struct FuzzRun {
  std::string bundle;
  std::uint64_t seed = 0;  // of the first round
  bool isInterrupted = false;
  FuzzSummary summary;
};

// With the line below it that brings the finding back.
std::string LinesOf(const std::string& bundle, const FuzzFinding& finding);
std::string LineOf(const FuzzRun& run);

std::string JsonOf(const std::string& bundle, const FuzzFinding& finding);
std::string JsonOf(const FuzzRun& run);

}  // namespace brvhost
