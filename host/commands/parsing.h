// The parsing of the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brvhost {

// Throws UsageError where there is no such command.
const CLI::App& CommandNamed(const CLI::App& app, const std::string& name);

// Throws CLI::Success where only the help or the version is asked for, and UsageError where the command line cannot be
// taken as it is.
void ParseCommandLine(CLI::App& app, int argc, const char* const* argv);

}  // namespace brvhost
