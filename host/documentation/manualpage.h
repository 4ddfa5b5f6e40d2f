// The manual pages: one of the program, and one of each command.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "host/documentation/optionlist.h"

namespace brvhost {

// "brvhost-run", of a command of that program.
std::string PageName(const CLI::App& app, const CommandText& command);

// The date is that of the release, as in 2026-11-22.
std::string ProgramPage(const CLI::App& app, const std::string& date);
std::string CommandPage(const CLI::App& app, const CommandText& command, const std::string& date);

}  // namespace brvhost
