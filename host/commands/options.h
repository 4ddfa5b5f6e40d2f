// What the command line says.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/files/scorefile.h"

namespace brvhost {

// As the user wrote them; ranges and fractions are read when the command runs.
struct Options {
  std::string bundle;
  std::vector<std::string> scores;

  int item = 0;
  std::string output;
  std::string outputFolder;
  bool inPlace = false;
  bool dryRun = false;

  std::string staves;
  std::string measures;
  std::string startAt;
  std::string endAt;
  std::string layers;
  bool all = false;

  bool yes = false;
  int jobs = 1;
  std::uint64_t maxSize = kDefaultMaxSize;
};

// The whole command line. Parsing fills `options`, which outlives it.
std::unique_ptr<CLI::App> DescribeCommandLine(Options& options);

}  // namespace brvhost
