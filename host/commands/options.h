// What the user asks for on the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/files/sizelimit.h"

namespace brvhost {

// As the user wrote it; ranges and fractions are read when the command runs.
struct Options {
  std::string bundle;
  std::vector<std::string> bundles;  // of `check`
  std::vector<std::string> scores;   // or folders, or "-"
  std::string filesFrom;             // a file with more of them
  bool endsNamesWithZero = false;    // in that file
  bool recursive = false;

  int item = 0;
  std::string itemName;  // instead of the number
  std::string output;
  std::string outputFolder;
  bool inPlace = false;
  bool dryRun = false;

  std::string staves;
  std::vector<std::string> parts;
  std::string measures;
  std::string startAt;
  std::string endAt;
  std::string layers;
  std::string voices;
  bool all = false;

  std::string include;  // facts, by a regular expression
  std::string exclude;
  bool onlyFailed = false;
  bool strict = false;
  bool inProcess = false;
  std::string junit;  // a file

  std::string newName;  // of an extension that `new` makes
  std::string identifier;
  std::string languages = "en";

  std::string explained;  // the command that `help` is about; empty: brvhost as a whole

  bool list = false;
  bool json = false;
  bool quiet = false;
  bool verbose = false;
  bool yes = false;
  bool traceTimes = false;
  std::string trace;  // a file, or "-" for the standard error; empty: none
  int jobs = 1;
  std::optional<int> timeout;   // seconds a score
  int factTimeout = 10;         // seconds a fact
  int roundTimeout = 10;        // seconds a round
  std::optional<int> fuzzTime;  // in seconds
  bool confines = false;        // whether `run` and `items` confine the extension
  bool checkConfines = true;    // whether `check` does
  std::uint64_t maxSize = kDefaultMaxSize;
  std::optional<std::uint64_t> maxMemory;  // as the score's size demands when null
  std::optional<std::int64_t> seed;        // of the first round
  std::optional<std::int64_t> rounds;
  std::optional<std::int64_t> reproduce;  // the seed of the only round
};

}  // namespace brvhost
