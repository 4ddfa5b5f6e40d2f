// The parsing of the command line.
#pragma once

#include <CLI/CLI.hpp>

namespace brvhost {

// Throws CLI::Success where only the help or the version is asked for, and UsageError where the command line cannot be
// taken as it is.
void ParseCommandLine(CLI::App& app, int argc, const char* const* argv);

}  // namespace brvhost
