// The command line: its commands, their options, and the help on them.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "host/commands/options.h"

namespace brvhost {

// The whole command line. Parsing fills `options`, which outlives it.
std::unique_ptr<CLI::App> DescribeCommandLine(Options& options, const std::string& version);

}  // namespace brvhost
