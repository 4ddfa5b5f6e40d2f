// Completions of the command line, for shells.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brvhost {

std::string BashCompletion(const CLI::App& app);
std::string ZshCompletion(const CLI::App& app);

}  // namespace brvhost
